// Hands an object that C++ made and owns to one QML engine, where its type is a singleton.
//
// Such a type has no default constructor: QML would call it, and show an instance of its own that nobody else
// knows, rather than ask `create`.
#pragma once

#include <QQmlEngine>
#include <QVariant>
#include <type_traits>

namespace brimlet {

/// The engine's property name under which an object of this type is kept.
template <typename Type>
const char* engineProperty() {
    static_assert(!std::is_default_constructible_v<Type>, "QML would make an instance of its own");
    return Type::staticMetaObject.className();
}

/// The object outlives the engine.
template <typename Type>
void giveToEngine(QQmlEngine& engine, Type& object) {
    QQmlEngine::setObjectOwnership(&object, QQmlEngine::CppOwnership);
    engine.setProperty(engineProperty<Type>(), QVariant::fromValue(&object));
}

/// The object given to this engine; null where none was.
template <typename Type>
Type* engineSingleton(const QQmlEngine* engine) {
    return engine->property(engineProperty<Type>()).template value<Type*>();
}

} // namespace brimlet
