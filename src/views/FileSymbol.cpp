#include "views/FileSymbol.h"

#include "app/Texts.h"
#include "core/FileKind.h"
#include "core/Paths.h"

namespace brimlet {

QString symbolForName(std::string_view name) {
    const std::string_view extension = pathExtension(name);
    if (extension == "app")
        return QStringLiteral("app.fill");
    const FileKind kind = fileKindForName(name);
    if (kind != FileKind::other)
        return shownText(look(kind).symbol);
    constexpr std::size_t longestExtension = 5;
    const bool hasExtension = !extension.empty() && extension.size() <= longestExtension;
    return hasExtension ? QStringLiteral("doc.text.fill") : QStringLiteral("folder.fill");
}

} // namespace brimlet
