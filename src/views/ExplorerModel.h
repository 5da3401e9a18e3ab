// Where the Explorer is and what it says about that folder. Main thread.
#pragma once

#include "app/AppState.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>

namespace brimlet {

class ExplorerModel : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
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
    explicit ExplorerModel(QObject* parent = nullptr)
        : QObject(parent) {}

    AppState* state() const { return m_state; }
    void setState(AppState* state);
    bool isEmpty() const { return current() == nullptr; }
    QStringList crumbs() const;
    bool canGoUp() const { return m_state && m_state->explorerStack().size() > 1; }
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
    void stateChanged();
    void changed();
    void showsMapChanged();

private:
    FileNode* current() const;

    QPointer<AppState> m_state;
};

} // namespace brimlet
