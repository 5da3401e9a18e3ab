// One part of a bar or ring, with its legend.
#pragma once

#include <cstdint>
#include <QColor>
#include <QObject>
#include <QString>

namespace brimlet {

class Segment {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(qint64 value MEMBER value CONSTANT)
    Q_PROPERTY(QColor color MEMBER color CONSTANT)

public:
    QString id;
    QString title;
    std::int64_t value = 0; ///< bytes
    QColor color;
    bool operator==(const Segment&) const = default;
};

} // namespace brimlet
