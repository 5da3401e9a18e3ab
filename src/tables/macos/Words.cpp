// How one speaks of a Mac.
#include "tables/macos/MacosTables.h"

namespace brimlet::macos {

// clang-format off

const SystemWords words = {
    .diskName = "Macintosh HD",
    .showInFileManager = "Show in Finder",
    .nothingFound = "Your Mac is clean. No junk found.",
    .spaceBeforeCleaning = "You have %1 free of %2. Brimlet only looks for files that macOS and your apps can recreate.",
    .cleaningCovers = "Caches, logs, Trash, Xcode leftovers, Mail attachments…",
    .staysHere = "Everything stays on your Mac",
    .scanPromptOfOverview = "Scan your Mac to see what takes up space and what can be cleaned safely.",
    .scanPromptOfExplorer = "Browse folder by folder sorted by size, like a Finder that shows what everything really takes up.",
    .unreadableFolder = "No permission to read. Grant Full Disk Access.",
    .accessBanner = "Without it, macOS hides folders like Mail, Safari and app containers from Brimlet, so sizes come out incomplete. Brimlet never sends anything off your Mac.",
    .accessReason = "macOS protects folders like Mail, Messages, Safari and app data. Without this permission sizes are incomplete and macOS will ask you folder by folder.",
    .accessRestart = "If macOS asks, choose “Quit & Reopen”.",
    .onlyNamesAndSizes = "Brimlet only reads names and sizes. Nothing leaves your Mac.",
};

const std::array<std::string_view, storageBucketCount> bucketExplanations = {
    /* applications */ ".app bundles in Applications and other folders.",
    /* documents    */ "PDFs, office files, text and data.",
    /* images       */ "Photos, the Photos library and design files.",
    /* video        */ "Movies, recordings and video projects.",
    /* audio        */ "Music, podcasts and sound libraries.",
    /* archives     */ "DMG, PKG, ZIP… usually safe to delete after installing.",
    /* developer    */ "Xcode, simulators, node_modules, Docker and package caches.",
    /* appData      */ "What apps store in ~/Library: databases, settings, containers.",
    /* junk         */ "Caches, logs and temporary files. macOS and apps recreate them.",
    /* trash        */ "Items already in the Trash.",
    /* system       */ "macOS files and shared components outside the sealed volume.",
    /* other        */ "Everything that doesn’t fit another category.",
};

// clang-format on

} // namespace brimlet::macos
