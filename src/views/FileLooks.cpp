#include "views/FileLooks.h"

#include "core/FileKind.h"
#include "core/Paths.h"
#include "core/StorageBucket.h"

namespace brimlet {

namespace {

constexpr CategoryLook folderLook = {"folder", "Folder", "", "folder.fill", 0x6e5bff};

const CategoryLook& lookOf(const QString& path, bool directory) {
    const std::string bytes = path.toStdString();
    const std::string_view name = lastPathComponent(bytes);
    if (!directory)
        return look(fileKindForName(name));
    return isPackageName(name) ? look(FileKind::application) : folderLook;
}

} // namespace

QString FileLooks::symbol(const QString& path, bool directory) const {
    return QString::fromStdString(std::string(lookOf(path, directory).symbol));
}

QColor FileLooks::color(const QString& path, bool directory) const {
    return QColor::fromRgb(lookOf(path, directory).color);
}

} // namespace brimlet
