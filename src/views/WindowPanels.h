// The panels as dialogs of the main window: C++ asks here, the window's QML shows and answers.
#pragma once

#include "platform/Panels.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <QUrl>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

class WindowPanels : public QObject, public Panels {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit WindowPanels(QObject* parent = nullptr)
        : QObject(parent) {}

    static WindowPanels* create(QQmlEngine* engine, QJSEngine*);

    void chooseFolder(const std::string& prompt, Answer answer) override;
    void chooseFileToSave(const std::string& suggestedName, Answer answer) override;

    Q_INVOKABLE void accept(const QUrl& place);
    Q_INVOKABLE void reject() { finish(std::nullopt); }

signals:
    void folderWanted(const QString& prompt);
    void fileToSaveWanted(const QString& suggestedName);

private:
    void await(Answer answer);
    void finish(std::optional<std::string> path);

    Answer m_answer; // empty while no panel is open
};

} // namespace brimlet
