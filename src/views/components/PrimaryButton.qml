// The one thing a screen wants done next.
import QtQuick
import Brimlet

AppButton {
    kind: AppButton.Primary
}
