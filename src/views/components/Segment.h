// One part of a bar or ring, with its legend.
#pragma once

#include <QColor>
#include <QObject>
#include <QString>

namespace brimlet {

class Segment {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id CONSTANT)
    Q_PROPERTY(QString title MEMBER title CONSTANT)
    Q_PROPERTY(double value MEMBER value CONSTANT)
    Q_PROPERTY(QColor color MEMBER color CONSTANT)

public:
    QString id;
    QString title;
    double value = 0; ///< bytes
    QColor color;
    bool operator==(const Segment&) const = default;
};

} // namespace brimlet
