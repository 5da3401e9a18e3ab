#include "app/Translation.h"

#include "core/Localized.h"

#include <QCoreApplication>

namespace brimlet {

namespace {

std::string translated(std::string_view english) {
    return QCoreApplication::translate("brimlet", std::string(english).c_str()).toStdString();
}

} // namespace

void connectTranslations() {
    setTextLookup(translated);
}

} // namespace brimlet
