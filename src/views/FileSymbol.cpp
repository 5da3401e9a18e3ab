#include "views/FileSymbol.h"

#include "app/Texts.h"
#include "core/FileKind.h"
#include "core/Paths.h"

namespace brimlet {

QString symbolForName(std::string_view name) {
    if (pathExtension(name) == "app")
        return QStringLiteral("app.fill");
    const FileKind kind = fileKindForName(name);
    return kind == FileKind::other ? QStringLiteral("folder.fill") : shownText(look(kind).symbol);
}

} // namespace brimlet
