// What assistive tools see of the map: one element for each segment, with its name, size and share.
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace brimlet {

class SunburstView;

/// Makes the map's element; to be installed as a factory once, before the first window. Null for other
/// classes.
QAccessibleInterface* sunburstAccessible(const QString& className, QObject* object);

/// Tells assistive tools, where any listen, that a segment has come under the keys.
void announceFocus(SunburstView& map, int segment);

/// Tells them that the map has other segments now.
void announceSegments(SunburstView& map);

} // namespace brimlet
