// A button that shows one choice and drops a menu of all.
pragma ComponentBehavior: Bound

import QtQuick
import QtQml.Models
import Brimlet

AppButton {
    id: picker

    required property string title ///< what is chosen, for assistive tools
    required property var options  ///< texts
    property int index: 0          ///< -1 where none of the options is chosen

    signal chosen(int index)

    menuIndicator: true
    text: options[index] ?? "—"

    Accessible.name: title + ": " + text
    Accessible.role: Accessible.ComboBox
    Keys.onDownPressed: menu.open()
    onClicked: menu.toggle()

    AppMenu {
        id: menu

        x: Theme.mirrored ? picker.width - width : 0
        y: picker.height + Theme.spaceXs

        Instantiator {
            model: picker.options

            delegate: AppMenuItem {
                required property int index
                required property string modelData

                text: modelData
                onTriggered: picker.chosen(index)
            }
            onObjectAdded: (index, object) => menu.insertItem(index, object)
            onObjectRemoved: (index, object) => menu.removeItem(object)
        }
    }
}
