// What the safety policy knows of the places of a Mac.
#include "tables/macos/MacosTables.h"

namespace brimlet::macos {

namespace {

constexpr Risk safe = Risk::safe;
constexpr Risk review = Risk::review;

// clang-format off

constexpr std::string_view roots[] = {"/Users", "/Applications", "/Library"};

constexpr PlaceRow systemPlaces[] = {
    {"/System", Risk::protected_, "Part of macOS, protected by System Integrity Protection (SIP)."},
    {"/bin", Risk::protected_, "Core macOS tools."},
    {"/sbin", Risk::protected_, "Core macOS tools."},
    {"/usr/bin", Risk::protected_, "macOS tools."},
    {"/usr/lib", Risk::protected_, "macOS libraries."},
    {"/usr/libexec", Risk::protected_, "macOS components."},
    {"/usr/sbin", Risk::protected_, "macOS tools."},
    {"/usr/share", Risk::protected_, "macOS data."},
    {"/private/var/db", Risk::protected_, "System databases (security, updates, users)."},
    {"/private/var/vm", Risk::protected_, "Virtual memory and sleep image. macOS manages them on its own."},
    {"/private/var/protected", Risk::protected_, "Protected system data."},
    {"/private/etc", Risk::protected_, "System configuration."},
    {"/Library/Apple", Risk::protected_, "Apple components."},
    {"/Library/Keychains", Risk::protected_, "System keychains: passwords and certificates."},
    {"/Library/Security", Risk::protected_, "Security components."},
    {"/Library/Extensions", Risk::protected_, "Kernel extensions. Deleting them can stop your Mac from starting up."},
    {"/Library/SystemExtensions", Risk::protected_, "System extensions in use."},
    {"/Library/Preferences/SystemConfiguration", Risk::protected_, "Network and system configuration."},
    {"/Library/Application Support/com.apple.TCC", Risk::protected_, "Privacy and permissions database."},
    {"/.Spotlight-V100", Risk::protected_, "Spotlight index. To rebuild it, use System Settings > Spotlight."},
    {"/.fseventsd", Risk::protected_, "File system change log."},
    {"/.DocumentRevisions-V100", Risk::protected_, "Document versions managed by macOS."},
    {"/MobileSoftwareUpdate", Risk::protected_, "macOS updates in progress."},
};

constexpr PlaceRow homePlaces[] = {
    {"Library/Keychains", Risk::protected_, "Your keychains: passwords, keys and certificates."},
    {"Library/Mail", Risk::protected_, "Your Mail mailboxes. Manage your email from the Mail app."},
    {"Library/Messages", Risk::protected_, "Your Messages history."},
    {"Library/Accounts", Risk::protected_, "Accounts set up on this Mac."},
    {"Library/Cookies", Risk::protected_, "Browser sessions."},
    {"Library/Group Containers/group.com.apple", Risk::protected_, "Data shared by Apple apps."},
    {"Library/Containers/com.apple", Risk::protected_, "Apple app data."},
    {"Library/Application Support/AddressBook", Risk::protected_, "Your contacts."},
    {"Library/Calendars", Risk::protected_, "Your calendars."},
    {"Library/Safari", Risk::protected_, "Safari history, bookmarks and tabs."},
    {"Library/Preferences", review, "App settings. Deleting them resets the apps."},
    {"Library/Mobile Documents", Risk::protected_, "iCloud Drive files. Deleting them here deletes them on all your devices."},
    {"Library/CloudStorage", Risk::protected_, "Synced files (Dropbox, Google Drive, OneDrive…). They would also be deleted from the cloud."},
};

constexpr std::string_view standardFolders[] = {
    "Desktop", "Documents", "Downloads", "Library", "Movies", "Music", "Pictures", "Public", "Applications",
};

constexpr std::string_view packageMarkers[] = {
    ".photoslibrary/", ".photolibrary/",  ".musiclibrary/", ".tvlibrary/",
    ".fcpbundle/",     ".imovielibrary/", ".app/",          ".logicx/",
};

constexpr LibraryRow libraries[] = {
    {".photoslibrary", "Your photo or music library. Manage it from its app."},
    {".musiclibrary", "Your photo or music library. Manage it from its app."},
};

constexpr std::string_view sharedFile = "Shared file used by the system or a tool. May require an administrator password.";

constexpr PlaceRow remainingPlaces[] = {
    {"Library", review, "App data. The app may lose settings or content if it’s still installed."},
    {"/Library", review, sharedFile},
    {"/private", review, sharedFile},
    {"/usr", review, sharedFile},
    {"/opt", review, sharedFile},
    {"Downloads", safe, "Download. Make sure you don’t need it."},
    {".Trash", safe, "Already in the Trash."},
    {"", review, "Personal file. Make sure you have a backup if it matters."},
};

// clang-format on

} // namespace

const SafetyTables safety = {
    .roots = roots,
    .systemPlaces = systemPlaces,
    .homePlaces = homePlaces,
    .standardFolders = standardFolders,
    .packageMarkers = packageMarkers,
    .libraries = libraries,
    .applications = {.suffix = ".app",
                     .systemIdentifier = "com.apple.",
                     .systemReason = "Apple app included with macOS or required by the system."},
    .remainingPlaces = remainingPlaces,
    .trash = ".Trash",
    .historyFolder = "Library/Application Support/Brimlet",
    .emptiedFolder = "Folder used by macOS. Brimlet empties its contents but keeps the folder.",
    .heldBySystem = "Protected by macOS or in use.",
};

} // namespace brimlet::macos
