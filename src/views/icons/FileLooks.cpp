#include "views/icons/FileLooks.h"

#include "app/EngineSingleton.h"
#include "core/FileKind.h"
#include "core/Paths.h"

namespace brimlet {

namespace {

constexpr CategoryLook folderLook = {"folder", "Folder", "folder.fill", 0x6e5bff};

} // namespace

FileLooks* FileLooks::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<FileLooks>(engine);
}

const CategoryLook& FileLooks::lookOf(const QString& path, bool directory) const {
    const std::string bytes = path.toStdString();
    const std::string_view name = lastPathComponent(bytes);
    if (!directory)
        return look(fileKindForName(name));
    return m_rules.isPackage(name) ? look(FileKind::application) : folderLook;
}

QString FileLooks::symbol(const QString& path, bool directory) const {
    return QString::fromStdString(std::string(lookOf(path, directory).symbol));
}

QColor FileLooks::color(const QString& path, bool directory) const {
    return QColor::fromRgb(lookOf(path, directory).color);
}

} // namespace brimlet
