// Connects the texts of the layers below, which know no Qt, to its translations.
#pragma once

namespace brimlet {

/// Those texts are looked up in the translations' context "brimlet". Call at start, once.
void connectTranslations();

} // namespace brimlet
