// What the stages of Quick Clean say: steps, figures, ticks, and the report's lines.
#pragma once

#include "app/state/QuickCleanState.h"
#include "app/state/ScanState.h"
#include "views/base/AppStateReader.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace brimlet {

class SmartCleanModel : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QStringList steps READ steps NOTIFY phaseChanged)
    Q_PROPERTY(bool volumeKnown READ volumeKnown NOTIFY volumeChanged)
    Q_PROPERTY(double used READ used NOTIFY volumeChanged)
    Q_PROPERTY(double total READ total NOTIFY volumeChanged)
    Q_PROPERTY(QString freeSpaceSentence READ freeSpaceSentence NOTIFY volumeChanged)
    Q_PROPERTY(QStringList selection READ selection NOTIFY selectionChanged)
    Q_PROPERTY(double selectedSize READ selectedSize NOTIFY selectionChanged)
    Q_PROPERTY(QString cleanedLine READ cleanedLine NOTIFY reportChanged)
    Q_PROPERTY(QStringList reportLines READ reportLines NOTIFY reportChanged)

public:
    using AppStateReader::AppStateReader;

    /// "ahead", "present" or "finished" for "Scan", "Review" and "Clean".
    QStringList steps() const;

    bool volumeKnown() const { return state() && state()->scan()->volume().has_value(); }
    qint64 used() const;
    qint64 total() const;
    QString freeSpaceSentence() const; ///< empty where no volume is known

    QStringList selection() const; ///< ids of the ticked rules
    qint64 selectedSize() const { return state() ? state()->quickClean()->smartSelectedSize() : 0; }

    QString cleanedLine() const;     ///< "1.2 GB cleaned"; empty before the first report
    QStringList reportLines() const; ///< what else the report has to say, line by line

    Q_INVOKABLE void startScan();

    /// To the Overview; scans the whole disk where nothing has been scanned yet.
    Q_INVOKABLE void showWhatElseUsesSpace();

signals:
    void phaseChanged();
    void volumeChanged();
    void selectionChanged();
    void reportChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    qint64 available() const;
};

} // namespace brimlet
