#include "app/state/AppSection.h"

#include <algorithm>

namespace brimlet {

const std::array<AppSectionLook, 13>& allSections() {
    static constexpr std::array<AppSectionLook, 13> sections = {{
        {AppSection::smartClean, "smartClean", "Quick Clean", "wand.and.stars"},
        {AppSection::overview, "overview", "Overview", "chart.pie.fill"},
        {AppSection::explorer, "explorer", "Explorer", "folder.fill"},
        {AppSection::types, "types", "By Type", "square.stack.3d.up.fill"},
        {AppSection::large, "large", "Large & Old", "arrow.up.left.and.arrow.down.right"},
        {AppSection::systemData, "systemData", "System Data", "gearshape.2.fill"},
        {AppSection::apps, "apps", "Applications", "square.grid.2x2.fill"},
        {AppSection::leftovers, "leftovers", "App Leftovers", "puzzlepiece.extension.fill"},
        {AppSection::loginItems, "loginItems", "Login Items", "power.circle.fill"},
        {AppSection::junk, "junk", "Junk", "sparkles"},
        {AppSection::developer, "developer", "Developer", "hammer.fill"},
        {AppSection::duplicates, "duplicates", "Duplicates", "doc.on.doc.fill"},
        {AppSection::history, "history", "History", "clock.arrow.circlepath"},
    }};
    return sections;
}

const AppSectionLook& look(AppSection section) {
    return allSections().at(static_cast<std::size_t>(section));
}

std::optional<AppSection> sectionFromRaw(std::string_view raw) {
    const auto& sections = allSections();
    const auto* row = std::find_if(sections.begin(), sections.end(), [&](const AppSectionLook& candidate) {
        return candidate.rawValue == raw;
    });
    return row == sections.end() ? std::nullopt : std::optional(row->section);
}

} // namespace brimlet
