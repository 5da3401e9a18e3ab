// The panels as dialogs of the main window: C++ asks here, the window's QML shows and answers. Whoever asked
// for a file to save hears of an existing one only after the user has agreed to lose it.
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
    /// Whether the user is to say if the file `nameToReplace` may go.
    Q_PROPERTY(bool asksToReplace READ asksToReplace NOTIFY asksToReplaceChanged)
    Q_PROPERTY(QString nameToReplace READ nameToReplace NOTIFY asksToReplaceChanged)

public:
    /// Panels begin in `folder`, and later where the last one ended.
    explicit WindowPanels(std::string folder, QObject* parent = nullptr);

    static WindowPanels* create(QQmlEngine* engine, QJSEngine*);

    void chooseFolder(const std::string& prompt, Answer answer) override;
    void chooseFileToSave(const std::string& suggestedName, Answer answer) override;

    Q_INVOKABLE void acceptFolder(const QUrl& folder);
    Q_INVOKABLE void acceptFile(const QUrl& file);
    Q_INVOKABLE void reject() { finish(std::nullopt); }

    bool asksToReplace() const { return m_asksToReplace; }
    QString nameToReplace() const;
    Q_INVOKABLE void replace();
    Q_INVOKABLE void chooseAnotherName();

signals:
    void folderWanted(const QUrl& folder, const QString& prompt);
    /// `suffix` goes without a point.
    void fileToSaveWanted(const QUrl& suggestion, const QString& suffix);
    void asksToReplaceChanged();

private:
    void await(Answer answer);
    void askForFile(const std::string& name);
    void setAsksToReplace(bool asks);
    void finish(std::optional<std::string> path);

    std::string m_folder;
    std::string m_fileToReplace; ///< kept after the question, while that fades
    bool m_asksToReplace = false;
    Answer m_answer; ///< empty while no panel is open
};

} // namespace brimlet
