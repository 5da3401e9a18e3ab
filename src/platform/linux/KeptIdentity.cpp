#include "platform/linux/KeptIdentity.h"

#include <linux/magic.h>

namespace brimlet {

KeptIdentity::KeptIdentity(long type, std::uint64_t device)
    : m_device(device) {
    m_isLayered = type == OVERLAYFS_SUPER_MAGIC;
    m_keepsBirth = !m_isLayered;
    m_keepsInodes = type != MSDOS_SUPER_MAGIC && type != EXFAT_SUPER_MAGIC;
}

// An entry that shows the device of its layer in place of the overlay's shows that layer's inode, too.
EntryIdentity KeptIdentity::of(const FileStatus& status) const {
    EntryIdentity identity = status.identity();
    if (!m_keepsBirth) {
        identity.bornSeconds = 0;
        identity.bornNanoseconds = 0;
    }
    const bool isOfLayer = m_isLayered && status.device != m_device;
    if (isOfLayer)
        identity.device = 0;
    if (isOfLayer || !m_keepsInodes)
        identity.inode = 0;
    return identity;
}

} // namespace brimlet
