// What assistive tools see of the map: one element for each segment, with its name, size and share.
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace brimlet {

/// Makes the map's element; to be installed as a factory once, before the first window. Null for other
/// classes.
QAccessibleInterface* sunburstAccessible(const QString& className, QObject* object);

} // namespace brimlet
