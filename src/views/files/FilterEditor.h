// One FileFilter as the filter bar edits it: either a screen's own, or the application's for Large & Old.
// Main thread.
#pragma once

#include "app/state/NavigationState.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>

namespace brimlet {

class FilterEditor : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::NavigationState* shared READ shared WRITE setShared NOTIFY sharedChanged)
    Q_PROPERTY(QString homeFolder MEMBER m_homeFolder NOTIFY changed)
    Q_PROPERTY(QString query READ query WRITE setQuery NOTIFY changed)
    Q_PROPERTY(int sizeIndex READ sizeIndex WRITE setSizeIndex NOTIFY changed) ///< -1: none of the options
    Q_PROPERTY(int ageIndex READ ageIndex WRITE setAgeIndex NOTIFY changed)    ///< -1: none of the options
    Q_PROPERTY(int bucketIndex READ bucketIndex WRITE setBucketIndex NOTIFY changed) ///< 0: every category
    Q_PROPERTY(QStringList sizeOptions READ sizeOptions CONSTANT)
    Q_PROPERTY(QStringList ageOptions READ ageOptions CONSTANT)
    Q_PROPERTY(QStringList bucketOptions READ bucketOptions CONSTANT)
    Q_PROPERTY(
        QVariantList kindChips READ kindChips NOTIFY changed) ///< title, symbol, color, active of each kind
    Q_PROPERTY(QString pathPrefix READ pathPrefix NOTIFY changed) ///< as shown; empty for none

public:
    explicit FilterEditor(QObject* parent = nullptr)
        : QObject(parent) {}

    /// Whose `largeFilter` is edited; null for a filter of its own.
    NavigationState* shared() const { return m_shared; }
    void setShared(NavigationState* shared);

    const FileFilter& value() const { return m_shared ? m_shared->largeFilter() : m_own; }
    void setValue(FileFilter filter);

    QString query() const { return QString::fromStdString(value().query); }
    void setQuery(const QString& query);
    int sizeIndex() const;
    void setSizeIndex(int index);
    int ageIndex() const;
    void setAgeIndex(int index);
    int bucketIndex() const;
    void setBucketIndex(int index);
    QStringList sizeOptions() const;
    QStringList ageOptions() const;
    QStringList bucketOptions() const;
    QVariantList kindChips() const;
    QString pathPrefix() const;

    Q_INVOKABLE void toggleKind(int index);
    Q_INVOKABLE void clearPathPrefix();

signals:
    void sharedChanged();
    void changed();

private:
    template <typename Edit>
    void edit(Edit change) {
        FileFilter filter = value();
        change(filter);
        setValue(std::move(filter));
    }

    QPointer<NavigationState> m_shared;
    QString m_homeFolder; ///< for paths that are shown
    FileFilter m_own;
};

} // namespace brimlet
