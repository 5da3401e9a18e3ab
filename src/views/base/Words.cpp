#include "views/base/Words.h"

#include "app/EngineSingleton.h"

namespace brimlet {

Words* Words::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<Words>(engine);
}

} // namespace brimlet
