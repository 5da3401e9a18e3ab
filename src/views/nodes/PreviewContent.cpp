#include "views/nodes/PreviewContent.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

#include <QBuffer>
#include <QImageReader>
#include <QStringDecoder>

namespace brimlet {

namespace {

constexpr qint64 textBytes = 64LL * 1024;
constexpr qint64 imageBytes = 48LL * 1024 * 1024;
constexpr int shownPixels = 1600;
constexpr int imageMegabytes = 512; ///< decoded; a small file may claim any size

/// Formats that are pictures and nothing else: no scripts, no references to other files.
constexpr std::array<const char*, 8> imageFormats = {"png",  "jpeg", "gif", "bmp",
                                                     "webp", "tiff", "ico", "ppm"};

/// A regular file open for reading, or -1. Looks before it opens: opening a device may do something.
int openRegular(const std::string& path, struct stat& status) {
    if (lstat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return -1;
    const int descriptor = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor >= 0 && (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
        close(descriptor);
        return -1;
    }
    return descriptor;
}

QByteArray readUpTo(int descriptor, qint64 limit) {
    QByteArray bytes(limit, Qt::Uninitialized);
    qint64 length = 0;
    while (length < limit) {
        const ssize_t got = read(descriptor, bytes.data() + length, static_cast<std::size_t>(limit - length));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        length += got;
    }
    bytes.truncate(length);
    return bytes;
}

QImage decodeImage(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    if (std::ranges::none_of(imageFormats, [&](const char* one) { return format == one; }))
        return {};
    const QSize size = reader.size();
    if (size.isValid() && std::max(size.width(), size.height()) > shownPixels)
        reader.setScaledSize(size.scaled(shownPixels, shownPixels, Qt::KeepAspectRatio));
    return reader.read();
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\r' && c != '\t' && c != '\f' &&
           c != '\x1b';
}

/// Empty where the bytes are no UTF-8 text.
QString decodeText(const QByteArray& bytes) {
    if (std::ranges::any_of(bytes, isControl))
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    // A letter may be cut at the end.
    for (qsizetype cut = 0; cut < 4 && cut < bytes.size(); ++cut) {
        decoder.resetState();
        QString text = decoder.decode(QByteArrayView(bytes).chopped(cut));
        if (!decoder.hasError())
            return text;
    }
    return {};
}

} // namespace

PreviewContent readPreview(const std::string& path, const std::atomic<bool>& isWanted) {
    PreviewContent content;
    if (!isWanted)
        return content;
    struct stat status {};
    const int descriptor = openRegular(path, status);
    if (descriptor < 0)
        return content;
    QByteArray bytes = readUpTo(descriptor, std::min<qint64>(status.st_size, textBytes));
    content.text = decodeText(bytes);
    content.cut = bytes.size() < status.st_size;
    if (content.text.isEmpty() && status.st_size <= imageBytes) {
        bytes += readUpTo(descriptor, status.st_size - bytes.size());
        static std::once_flag isLimited;
        std::call_once(isLimited, [] { QImageReader::setAllocationLimit(imageMegabytes); });
        if (isWanted)
            content.image = decodeImage(std::move(bytes));
    }
    close(descriptor);
    return content;
}

} // namespace brimlet
