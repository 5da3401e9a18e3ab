#include "core/FileKind.h"

namespace brimlet {

namespace {

constexpr std::array<CategoryLook, fileKindCount> looks = {{
    {"document", "Documents", "doc.text.fill", 0x34C3A0},
    {"image", "Images", "photo.fill", 0xF5B83D},
    {"video", "Video", "film.fill", 0xFF6B8A},
    {"audio", "Audio", "waveform", 0xB57BFF},
    {"archive", "Archives", "archivebox.fill", 0xFF9F43},
    {"diskImage", "Disk Images & Installers", "opticaldiscdrive.fill", 0xFF9F43},
    {"code", "Code", "chevron.left.forwardslash.chevron.right", 0x3DD6F5},
    {"application", "Applications", "app.fill", 0x5B8CFF},
    {"other", "Other", "questionmark.square.dashed", 0xA0A4B0},
}};

struct ExtensionList {
    FileKind kind;
    std::string_view extensions;
};

// A later list overrides an earlier one: "exs" is code, not audio.
constexpr ExtensionList extensionLists[] = {
    {FileKind::document,
     "pdf doc docx xls xlsx ppt pptx pages numbers key txt rtf rtfd md markdown csv tsv epub odt ods odp tex "
     "log json xml yaml yml html htm"},
    {FileKind::image,
     "jpg jpeg png heic heif gif tif tiff bmp webp raw cr2 cr3 nef arw dng orf raf rw2 psd psb ai svg eps "
     "sketch fig xcf exr hdr icns ico avif jxl"},
    {FileKind::video,
     "mov mp4 m4v avi mkv webm mts m2ts mpg mpeg wmv flv 3gp braw r3d mxf vob prproj fcpxml"},
    {FileKind::audio,
     "mp3 m4a m4b m4p aac wav aif aiff flac ogg opus caf alac wma mid midi exs sf2 als band"},
    {FileKind::archive, "zip rar 7z tar gz tgz bz2 tbz xz txz lz lzma zst cab sit sitx cpgz"},
    {FileKind::diskImage,
     "dmg iso img sparseimage sparsebundle toast vmdk vdi qcow2 vhd vhdx ipsw pkg mpkg xip"},
    {FileKind::code,
     "swift m mm h hpp c cc cpp js mjs cjs ts tsx jsx py rb go rs java kt kts php cs sh zsh bash sql lua "
     "dart "
     "scala r pl ex exs erl hs vue svelte css scss sass less gradle o a dylib so class jar wasm pyc"},
};

constexpr std::size_t longestExtension = 12;

/// An extension in lower case as two numbers, so that a look-up compares no text. An empty slot is all zero;
/// names hold no NUL.
struct ExtensionKey {
    std::uint64_t head = 0;
    std::uint32_t tail = 0;
    constexpr bool operator==(const ExtensionKey&) const = default;
};

constexpr ExtensionKey keyFor(std::string_view extension) {
    ExtensionKey key;
    for (std::size_t i = 0; i < extension.size(); ++i) {
        auto byte = static_cast<unsigned char>(extension[i]);
        if (byte >= 'A' && byte <= 'Z')
            byte += 'a' - 'A';
        if (i < 8)
            key.head |= static_cast<std::uint64_t>(byte) << (8 * i);
        else
            key.tail |= static_cast<std::uint32_t>(byte) << (8 * (i - 8));
    }
    return key;
}

struct ExtensionSlot {
    ExtensionKey key;
    FileKind kind = FileKind::other;
};

/// Open addressing, built by the compiler; at most a quarter full, so that a miss is mostly one probe.
struct ExtensionTable {
    static constexpr std::size_t slotCount = 1024;
    std::array<ExtensionSlot, slotCount> slots{};

    static constexpr std::size_t firstSlot(const ExtensionKey& key) {
        const std::uint64_t mixed = (key.head ^ key.tail) * 0x9E3779B97F4A7C15U;
        return static_cast<std::size_t>(mixed >> 54);
    }

    constexpr std::size_t slotOf(const ExtensionKey& key) const {
        std::size_t slot = firstSlot(key);
        while (slots[slot].key != ExtensionKey{} && slots[slot].key != key)
            slot = (slot + 1) % slotCount;
        return slot;
    }
};

constexpr ExtensionTable buildExtensionTable() {
    ExtensionTable table;
    for (const ExtensionList& list : extensionLists) {
        std::string_view rest = list.extensions;
        while (!rest.empty()) {
            const std::string_view extension = rest.substr(0, rest.find(' '));
            rest.remove_prefix(extension.size() < rest.size() ? extension.size() + 1 : rest.size());
            const ExtensionKey key = keyFor(extension);
            table.slots[table.slotOf(key)] = {key, list.kind};
        }
    }
    return table;
}

constexpr ExtensionTable extensionTable = buildExtensionTable();

} // namespace

const std::array<FileKind, fileKindCount>& allFileKinds() {
    static constexpr std::array<FileKind, fileKindCount> all = {
        FileKind::document,  FileKind::image, FileKind::video,       FileKind::audio, FileKind::archive,
        FileKind::diskImage, FileKind::code,  FileKind::application, FileKind::other,
    };
    return all;
}

const CategoryLook& look(FileKind kind) {
    return looks[static_cast<std::size_t>(kind)];
}

FileKind fileKindForName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return FileKind::other;
    const std::string_view extension = name.substr(dot + 1);
    if (extension.empty() || extension.size() > longestExtension)
        return FileKind::other;
    return extensionTable.slots[extensionTable.slotOf(keyFor(extension))].kind;
}

} // namespace brimlet
