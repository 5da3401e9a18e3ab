// The sentences that differ from one operating system to another, for QML, in the user's language.
#pragma once

#include "app/Texts.h"
#include "tables/SystemWords.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

class Words : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString showInFileManager READ showInFileManager CONSTANT)
    Q_PROPERTY(QString nothingFound READ nothingFound CONSTANT)
    Q_PROPERTY(QString cleaningCovers READ cleaningCovers CONSTANT)
    Q_PROPERTY(QString staysHere READ staysHere CONSTANT)
    Q_PROPERTY(QString scanPromptOfOverview READ scanPromptOfOverview CONSTANT)
    Q_PROPERTY(QString scanPromptOfExplorer READ scanPromptOfExplorer CONSTANT)
    Q_PROPERTY(QString unreadableFolder READ unreadableFolder CONSTANT)
    Q_PROPERTY(QString accessBanner READ accessBanner CONSTANT)
    Q_PROPERTY(QString accessReason READ accessReason CONSTANT)
    Q_PROPERTY(QString accessRestart READ accessRestart CONSTANT)
    Q_PROPERTY(QString onlyNamesAndSizes READ onlyNamesAndSizes CONSTANT)

public:
    /// words   must outlive this
    explicit Words(const SystemWords& words)
        : m_words(words) {}

    static Words* create(QQmlEngine* engine, QJSEngine*);

    QString showInFileManager() const { return translatedText(m_words.showInFileManager); }
    QString nothingFound() const { return translatedText(m_words.nothingFound); }
    QString cleaningCovers() const { return translatedText(m_words.cleaningCovers); }
    QString staysHere() const { return translatedText(m_words.staysHere); }
    QString scanPromptOfOverview() const { return translatedText(m_words.scanPromptOfOverview); }
    QString scanPromptOfExplorer() const { return translatedText(m_words.scanPromptOfExplorer); }
    QString unreadableFolder() const { return translatedText(m_words.unreadableFolder); }
    QString accessBanner() const { return translatedText(m_words.accessBanner); }
    QString accessReason() const { return translatedText(m_words.accessReason); }
    QString accessRestart() const { return translatedText(m_words.accessRestart); }
    QString onlyNamesAndSizes() const { return translatedText(m_words.onlyNamesAndSizes); }

private:
    const SystemWords& m_words;
};

} // namespace brimlet
