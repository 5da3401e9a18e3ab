// How a file or folder presents itself in a list: a symbol and a colour, told by its name.
#pragma once

#include "core/FolderRules.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

class FileLooks : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// rules   must outlive this
    explicit FileLooks(const FolderRules& rules)
        : m_rules(rules) {}

    static FileLooks* create(QQmlEngine* engine, QJSEngine*);

    /// A name in the icon table. A file looks like its kind, a package like an application.
    Q_INVOKABLE QString symbol(const QString& path, bool directory) const;
    Q_INVOKABLE QColor color(const QString& path, bool directory) const;

private:
    const CategoryLook& lookOf(const QString& path, bool directory) const;

    const FolderRules& m_rules;
};

} // namespace brimlet
