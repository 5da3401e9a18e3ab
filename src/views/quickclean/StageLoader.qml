// Holds one stage of Quick Clean while its phase is on, and has its beginning read out.
import Brimlet
import Brimlet.App

FadingLoader {
    required property string phase
    required property string announcement

    active: App.quickClean.smartPhase === phase

    onLoaded: Assistive.say(announcement)
}
