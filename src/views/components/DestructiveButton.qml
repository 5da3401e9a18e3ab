// Leads to a removal. Filled only where pressing it is the confirmation itself.
import QtQuick
import Brimlet

AppButton {
    property bool confirming: false

    kind: confirming ? AppButton.DestructiveFilled : AppButton.Destructive
}
