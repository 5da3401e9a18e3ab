// What the parts of AppState have in common: a field and the signal that tells of it change together.
#pragma once

#include <QObject>
#include <utility>

namespace brimlet {

class StatePart : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

protected:
    template <typename Part, typename Value>
    void change(Value& field, Value value, void (Part::*changed)()) {
        if (field == value)
            return;
        field = std::move(value);
        emit(static_cast<Part*>(this)->*changed)();
    }
};

} // namespace brimlet
