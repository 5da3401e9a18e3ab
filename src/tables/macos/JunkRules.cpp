// What counts as junk on a Mac.
#include "tables/macos/MacosTables.h"

#include <array>
#include <optional>
#include <vector>

namespace brimlet::macos {

namespace {

using enum JunkGroup;
using Extensions = std::vector<std::string_view>;

constexpr Risk safe = Risk::safe;
constexpr Risk review = Risk::review;
constexpr Removal permanent = Removal::permanent;
constexpr Removal toTrash = Removal::trash;

using Catalogue = std::array<JunkRule, 17>;

// clang-format off

/// Each row: id, heading, title, / explanation, / risk, folder, way of removal, whether it is offered ticked,
/// and then extensions, age and excluded names where it has them.
const Catalogue& catalogue() {
    static const Catalogue rows = {{
        {"user-caches", system, "App caches",
         "Temporary copies apps keep to run faster. They’re rebuilt automatically; some apps may take a little longer the first time.",
         safe, "Library/Caches", permanent, true, std::nullopt, std::nullopt,
         {"com.apple.bird", "CloudKit", "com.apple.containermanagerd", "FamilyCircle", "com.apple.akd",
          "com.apple.nsurlsessiond", "com.brimlet.mac", "com.apple.HomeKit", "com.apple.ap.adprivacyd"}},
        {"user-logs", system, "Logs and crash reports",
         "Activity and error history from apps. Only useful for diagnosing problems.",
         safe, "Library/Logs", permanent, true},
        {"saved-state", system, "Saved window state",
         "Window positions used to reopen apps the way you left them. Recreated automatically.",
         safe, "Library/Saved Application State", permanent, true},
        {"system-logs", system, "System logs",
         "Logs shared by all users. May require administrator permissions.",
         review, "/Library/Logs", permanent, false},
        {"trash", trash, "Trash",
         "Everything you’ve already moved to the Trash. Emptying it actually frees the space.",
         safe, ".Trash", permanent, true},
        {"mail-downloads", mail, "Attachments opened from Mail",
         "Copies of attachments you opened. The original stays in the email.",
         safe, "Library/Containers/com.apple.mail/Data/Library/Mail Downloads", permanent, true},
        {"xcode-derived", developer, "Xcode · DerivedData",
         "Intermediate Xcode build products. Rebuilt when you build (the first build takes longer).",
         safe, "Library/Developer/Xcode/DerivedData", permanent, true},
        {"xcode-device-support", developer, "Xcode · Device Support",
         "Symbols for iOS/watchOS versions. Xcode downloads them again when you connect a device.",
         safe, "Library/Developer/Xcode/iOS DeviceSupport", permanent, true},
        {"xcode-watch-support", developer, "Xcode · watchOS Support",
         "Symbols for watchOS versions. Downloaded again if needed.",
         safe, "Library/Developer/Xcode/watchOS DeviceSupport", permanent, true},
        {"simulator-caches", developer, "Simulators · Caches",
         "iOS Simulator caches. They’re rebuilt automatically.",
         safe, "Library/Developer/CoreSimulator/Caches", permanent, true},
        {"xcode-archives", developer, "Xcode · Archives",
         "Archived builds for distribution. Used to read crash reports from released versions.",
         review, "Library/Developer/Xcode/Archives", toTrash, false},
        {"npm-cache", developer, "npm cache",
         "Packages downloaded by npm. Downloaded again when you install.",
         safe, ".npm/_cacache", permanent, false},
        {"gradle-cache", developer, "Gradle cache",
         "Dependencies downloaded by Gradle (Android/Java).",
         safe, ".gradle/caches", permanent, false},
        {"dot-cache", developer, "Tool caches (~/.cache)",
         "pip, Hugging Face, pre-commit… Note: they may contain large models you’d have to download again.",
         review, ".cache", permanent, false},
        {"ios-updates", devices, "Downloaded iOS updates",
         "iOS/iPadOS installers downloaded by Finder. Downloaded again if needed.",
         safe, "Library/iTunes/iPhone Software Updates", permanent, true},
        {"ios-backups", devices, "iPhone/iPad backups",
         "Local backups of your devices. Delete them only if you have an iCloud backup or no longer need them.",
         review, "Library/Application Support/MobileSync/Backup", toTrash, false},
        {"old-installers", downloads, "Installers in Downloads",
         ".dmg/.pkg/.xip files downloaded more than a week ago. The app is usually already installed.",
         review, "Downloads", toTrash, false,
         Extensions{"dmg", "pkg", "mpkg", "xip", "iso"}, 7},
    }};
    return rows;
}

// clang-format on

constexpr JunkGroup groups[] = {system, trash, mail, developer, devices, downloads};

} // namespace

JunkTables junk() {
    return {.rules = catalogue(),
            .groups = groups,
            .guardedBases = "Library/Containers/",
            .folderSettings = ".DS_Store"};
}

} // namespace brimlet::macos
