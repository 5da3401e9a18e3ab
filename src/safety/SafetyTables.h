// What the safety policy knows about places of a Mac, as data. The order of each table is part of its
// meaning: the first row that applies decides. Texts are English keys of the translation look-up.
#pragma once

#include "safety/Risk.h"

#include <array>
#include <string_view>

namespace brimlet {

struct PlaceRow {
    std::string_view path;
    Risk risk;
    std::string_view reason;
};

// clang-format off

/// Absolute folders of the system.
inline constexpr std::array<PlaceRow, 23> systemTable = {{
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
}};

/// Places below the home folder. A row also covers what begins with its path and a dot, so that
/// "Library/Containers/com.apple" covers every container of that family.
inline constexpr std::array<PlaceRow, 13> userTable = {{
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
    {"Library/Preferences", Risk::review, "App settings. Deleting them resets the apps."},
    {"Library/Mobile Documents", Risk::protected_, "iCloud Drive files. Deleting them here deletes them on all your devices."},
    {"Library/CloudStorage", Risk::protected_, "Synced files (Dropbox, Google Drive, OneDrive…). They would also be deleted from the cloud."},
}};

// clang-format on

/// Folders that every home folder has.
inline constexpr std::array<std::string_view, 9> standardFolders = {
    "Desktop", "Documents", "Downloads", "Library", "Movies", "Music", "Pictures", "Public", "Applications",
};

/// What the path of a package's content contains. The trailing slash keeps the package itself out.
inline constexpr std::array<std::string_view, 8> packageMarkers = {
    ".photoslibrary/", ".photolibrary/",  ".musiclibrary/", ".tvlibrary/",
    ".fcpbundle/",     ".imovielibrary/", ".app/",          ".logicx/",
};

} // namespace brimlet
