pragma Singleton

// Every colour, size and duration of the window. No other file holds a literal of these.
import QtQuick
import Brimlet.App

QtObject {
    id: theme

    readonly property bool dark: Appearance.dark
    readonly property bool mirrored: Appearance.rightToLeft ///< the language begins at the right

    // Surfaces
    readonly property color window: dark ? "#16171d" : "#f5f5f8"
    readonly property color sidebar: dark ? "#1b1c24" : "#ececf2"
    readonly property color card: dark ? "#20222b" : "#ffffff"
    readonly property color cardBorder: dark ? "#2c2f3a" : "#e4e4ec"
    readonly property color floating: dark ? "#272a35" : "#ffffff"
    readonly property color track: dark ? "#2b2d38" : "#e7e7ef"
    readonly property color hover: dark ? "#0fffffff" : "#0d000000"
    readonly property color pressed: dark ? "#1affffff" : "#17000000"
    readonly property color selection: withAlpha(accent, dark ? 0.28 : 0.14)
    readonly property color dim: dark ? "#99000000" : "#59000000"
    readonly property color shadow: dark ? "#0c000000" : "#04101030"

    // Words. The accents are made for areas; as words they need a shade of more contrast.
    readonly property color text: dark ? "#f1f2f6" : "#1b1c22"
    readonly property color textSecondary: dark ? "#a3a7b5" : "#63656f"
    readonly property color accentText: dark ? "#aca2ff" : "#5642e0"
    readonly property color dangerText: dark ? "#ff8589" : "#c0282f"
    readonly property color safeText: dark ? "#4fd585" : "#147a3f"
    readonly property color reviewText: dark ? "#f5b45c" : "#8f5600"
    readonly property color textOnAccent: "#ffffff"

    // Meanings
    readonly property color accent: "#6e5bff"
    readonly property color secondAccent: "#2fd5c9"
    readonly property color danger: "#e5484d"
    readonly property color dangerFill: "#d3343a"
    readonly property color safe: "#30c26b"
    readonly property color review: "#f2a33a"

    // Type. Sizes follow the system's text size.
    readonly property string wordFamily: "Inter"
    readonly property string figureFamily: "Roboto"
    readonly property string codeFamily: "monospace"
    readonly property int displaySize: scaled(34)
    readonly property int titleSize: scaled(24)
    readonly property int headingSize: scaled(15)
    readonly property int bodySize: scaled(13)
    readonly property int captionSize: scaled(11)
    readonly property int smallCaptionSize: scaled(10)
    readonly property real lineHeight: 1.35

    // Space and shape
    readonly property int spaceXs: 4
    readonly property int spaceS: 8
    readonly property int spaceM: 12
    readonly property int spaceL: 16
    readonly property int spaceXl: 24
    readonly property int spaceXxl: 32
    readonly property int pageMaximumWidth: 1240
    readonly property int textMaximumWidth: scaled(460)
    readonly property int stageMaximumWidth: scaled(720)
    readonly property int rowHeight: scaled(34)
    readonly property int tallRowHeight: scaled(46)
    readonly property int controlHeight: scaled(32)
    readonly property int largeControlHeight: scaled(40)
    readonly property int nameColumn: scaled(220)
    readonly property int columnXs: scaled(64)
    readonly property int columnS: scaled(88)
    readonly property int columnM: scaled(112)
    readonly property int columnL: scaled(150)
    readonly property int columnXl: scaled(176)
    readonly property int columnMinimum: scaled(48)
    readonly property int sidePanelWidth: scaled(280)
    readonly property int sidePanelLeast: 280
    readonly property int mapMinimumHeight: 260
    readonly property int tableMinimumHeight: scaled(32 + 3 * 46)
    readonly property int tileWidth: scaled(148)
    readonly property int fieldWidth: scaled(280)
    readonly property int smallDot: 7
    readonly property int iconButtonSize: scaled(28)
    readonly property int junkIndent: scaled(68)
    readonly property int dateColumn: scaled(132)
    readonly property int sizeColumn: scaled(80)
    readonly property int methodColumn: scaled(76)
    readonly property int actionColumn: scaled(92)
    readonly property int historyWidth: columnL + dateColumn + sizeColumn + methodColumn + actionColumn
                                        + 4 * spaceL + 2 * spaceM
    readonly property int sidebarWidth: scaled(216)
    readonly property int sidebarLeast: 216
    readonly property int stepsWidth: scaled(420)
    readonly property int toolbarHeight: scaled(52)
    readonly property int sheetWidth: scaled(560)
    readonly property int sheetLowHeight: scaled(480)
    readonly property int sheetListHeight: scaled(160)
    readonly property int planRowHeight: scaled(60)
    readonly property int ruleRowHeight: scaled(72)
    readonly property int iconSmall: scaled(14)
    readonly property int iconSize: scaled(16)
    readonly property int fileIcon: scaled(20)
    readonly property int iconLarge: scaled(24)
    readonly property int iconHuge: scaled(40)
    readonly property int medallion: Math.min(scaled(88), 112)
    readonly property int ringSize: Math.min(scaled(200), 264)
    readonly property int ringThickness: scaled(10)
    readonly property int barThickness: 4
    readonly property int thickBar: 14
    readonly property int dot: 10
    readonly property int hairline: 1
    readonly property int focusWidth: 2
    readonly property int radiusCard: 14
    readonly property int radiusControl: 8
    readonly property int radiusSmall: 4

    // Opacities
    readonly property real faint: 0.4
    readonly property real tint: 0.12
    readonly property real ambient: dark ? 0.07 : 0.05
    readonly property real dimmed: 0.35
    readonly property real disabled: 0.45

    // Motion
    readonly property bool animated: !Appearance.reducedMotion
    readonly property int quick: animated ? 120 : 0
    readonly property int gentle: animated ? 220 : 0
    readonly property int turn: 1400
    readonly property int typeAheadPause: 900
    readonly property int settle: 700
    readonly property int breath: 2600

    function scaled(size: int): int {
        return Math.round(size * Appearance.textScale);
    }

    function withAlpha(base: color, alpha: real): color {
        return Qt.rgba(base.r, base.g, base.b, alpha);
    }
}
