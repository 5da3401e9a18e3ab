#include "views/NodeLook.h"

#include "app/Formats.h"
#include "core/Localized.h"
#include "core/Paths.h"

#include <QCoreApplication>

namespace brimlet {

QString displayText(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

QString displayName(const FileNode& node) {
    if (node.parent != nullptr)
        return displayText(node.name);
    const std::string_view name = lastPathComponent(normalisedPath(node.name));
    return name.empty() ? QCoreApplication::translate("Explorer", "Disk") : displayText(name);
}

QString kindText(const FileNode& node) {
    const std::size_t dot = node.name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0 && dot + 1 < node.name.size();
    return hasExtension ? displayText(node.name.substr(dot + 1)).toUpper()
                        : displayText(localized(look(node.kind).title));
}

QString relativeTime(double secondsSince1970) {
    constexpr double lastUnknownSecond = 86'400;
    if (!(secondsSince1970 > lastUnknownSecond))
        return QStringLiteral("—");
    return relativeDateText(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(secondsSince1970)),
                            QDateTime::currentDateTime());
}

} // namespace brimlet
