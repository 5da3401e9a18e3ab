#include "views/FileLooks.h"

#include "core/FileKind.h"
#include "core/Paths.h"
#include "core/StorageBucket.h"

namespace brimlet {

namespace {

constexpr QRgb folderColor = 0xff6e5bff;

std::string nameOf(const QString& path) {
    return std::string(lastPathComponent(path.toStdString()));
}

/// A package is shown as the one thing that it is.
bool isPlainFolder(const QString& path, bool directory) {
    return directory && !isPackageName(nameOf(path));
}

} // namespace

QString FileLooks::symbol(const QString& path, bool directory) const {
    if (isPlainFolder(path, directory))
        return QStringLiteral("folder.fill");
    return QString::fromStdString(std::string(look(fileKindForName(nameOf(path))).symbol));
}

QColor FileLooks::color(const QString& path, bool directory) const {
    if (isPlainFolder(path, directory))
        return QColor::fromRgb(folderColor);
    return QColor::fromRgb(look(fileKindForName(nameOf(path))).color);
}

} // namespace brimlet
