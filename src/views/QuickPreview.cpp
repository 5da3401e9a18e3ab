#include "views/QuickPreview.h"

#include "app/Formats.h"
#include "core/Paths.h"
#include "platform/HomeFolder.h"
#include "views/NodeLook.h"

namespace brimlet {

bool QuickPreview::toggle(NodeTableModel* table) {
    const FileNode* node = table->nodeAt(table->firstSelectedRow());
    if (m_isOpen)
        close();
    else if (node != nullptr)
        show(*node);
    return node != nullptr || m_isOpen;
}

void QuickPreview::followSelection(NodeTableModel* table) {
    if (!m_isOpen)
        return;
    const FileNode* node = table->nodeAt(table->firstSelectedRow());
    if (node == nullptr)
        close();
    else if (node->path() != m_path)
        show(*node);
}

void QuickPreview::showFirst(NodeActions* actions) {
    if (!actions->nodes().empty())
        show(*actions->nodes().front());
}

void QuickPreview::close() {
    m_isOpen = false;
    m_path.clear();
    m_content = {};
    emit changed();
}

void QuickPreview::show(const FileNode& node) {
    m_isOpen = true;
    m_path = node.path();
    m_shownPath = displayText(displayPath(m_path, homeFolder()));
    m_name = displayName(node);
    m_directory = node.isDirectory;
    m_details = tr("%1 · %2 · Modified %3")
                    .arg(kindText(node), bytesText(node.size, QLocale()), dateText(node.modified, QLocale()));
    m_content = {};
    m_isLoading = !node.isDirectory;
    emit changed();
    if (node.isDirectory)
        return;
    m_work.run([path = m_path] { return std::pair(path, readPreview(path)); },
               [this](std::pair<std::string, PreviewContent> read) {
                   if (read.first != m_path)
                       return;
                   m_content = std::move(read.second);
                   m_isLoading = false;
                   emit changed();
               });
}

} // namespace brimlet
