// Where the Explorer is and what it says about that folder. Main thread.
#pragma once

#include "app/state/NavigationState.h"
#include "views/base/AppStateReader.h"

#include <QVariantList>

namespace brimlet {

class ExplorerModel : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed) ///< nothing has been scanned
    Q_PROPERTY(QStringList crumbs READ crumbs NOTIFY changed)
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(double size READ size NOTIFY changed)
    Q_PROPERTY(double fileCount READ fileCount NOTIFY changed)
    Q_PROPERTY(QVariantList segments READ segments NOTIFY changed)        ///< Segment of the largest children
    Q_PROPERTY(QString smallFilesNote READ smallFilesNote NOTIFY changed) ///< empty where there are none
    Q_PROPERTY(bool showsMap READ showsMap WRITE setShowsMap NOTIFY showsMapChanged) ///< kept across starts

public:
    using AppStateReader::AppStateReader;

    bool isEmpty() const { return current() == nullptr; }
    QStringList crumbs() const;
    bool canGoUp() const { return state() && state()->navigation()->explorerStack().size() > 1; }
    QString title() const;
    double size() const { return isEmpty() ? 0 : static_cast<double>(current()->size); }
    double fileCount() const { return isEmpty() ? 0 : static_cast<double>(current()->fileCount); }
    QVariantList segments() const;
    QString smallFilesNote() const;
    bool showsMap() const;
    void setShowsMap(bool map);

    Q_INVOKABLE void goTo(int crumb); ///< cuts the way down to this one
    Q_INVOKABLE void goUp();
    Q_INVOKABLE void revealCurrent();

signals:
    void showsMapChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    FileNode* current() const;
};

} // namespace brimlet
