#include "views/nodes/QuickPreview.h"

#include "app/Formats.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "views/nodes/NodeLook.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace brimlet {

bool QuickPreview::toggle(NodeTableModel* table) {
    const FileNode* node = table->nodeAt(table->firstSelectedRow());
    if (m_isOpen)
        close();
    else if (node != nullptr)
        show(*node, table->state()->homeFolder());
    return node != nullptr || m_isOpen;
}

void QuickPreview::followSelection(NodeTableModel* table) {
    if (!m_isOpen)
        return;
    const FileNode* node = table->nodeAt(table->firstSelectedRow());
    if (node == nullptr)
        close();
    else if (node->path() != m_path)
        show(*node, table->state()->homeFolder());
}

void QuickPreview::showFirst(NodeActions* actions) {
    if (actions->first() != nullptr)
        show(*actions->first(), actions->state()->homeFolder());
}

QuickPreview::~QuickPreview() {
    forget();
}

void QuickPreview::close() {
    forget();
    m_isOpen = false;
    m_path.clear();
    m_content = {};
    emit changed();
}

void QuickPreview::show(const FileNode& node, const std::string& homeFolder) {
    forget();
    m_isOpen = true;
    m_path = node.path();
    m_shownPath = shownText(displayPath(m_path, homeFolder));
    m_name = displayName(node);
    m_directory = node.isDirectory;
    m_details = tr("%1 · %2 · Modified %3")
                    .arg(kindText(node), bytesText(node.size, QLocale()), dateText(node.modified, QLocale()));
    m_content = {};
    emit changed();
    if (node.isDirectory)
        return;
    read();
}

/// Nobody waits for it: a file on a disk that hangs may never be read.
void QuickPreview::read() {
    m_isWanted = std::make_shared<std::atomic<bool>>(true);
    QThreadPool::globalInstance()->start([path = m_path, isWanted = m_isWanted, self = QPointer(this)] {
        PreviewContent content = readPreview(path, *isWanted);
        if (!*isWanted)
            return;
        QMetaObject::invokeMethod(qApp, [content = std::move(content), isWanted, self] {
            if (*isWanted && self)
                self->take(content);
        });
    });
}

void QuickPreview::forget() {
    if (m_isWanted)
        *m_isWanted = false;
}

void QuickPreview::take(const PreviewContent& content) {
    m_content = content;
    emit changed();
}

} // namespace brimlet
