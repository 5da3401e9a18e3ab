// Looks into a file for the quick preview: an image, the beginning of a text, or nothing of either. Never
// runs anything, opens regular files only, and reads a bounded number of bytes.
#pragma once

#include <atomic>
#include <string>

#include <QImage>
#include <QString>

namespace brimlet {

struct PreviewContent {
    QImage image;     ///< null where it is none
    QString text;     ///< empty where it is none
    bool cut = false; ///< the text goes on beyond what is shown
};

/// path      absolute, any bytes
/// isWanted  looked at before the file is opened and before it is decoded; once false, nothing is given
/// thread    any; blocks on the disk
PreviewContent readPreview(const std::string& path, const std::atomic<bool>& isWanted);

} // namespace brimlet
