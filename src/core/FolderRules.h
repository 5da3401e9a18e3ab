// What the name and the place of a folder say, by the tables of one operating system: what its space is used
// for, and whether it is shown as one item. Immutable after construction; callable from any thread.
#pragma once

#include "core/StorageBucket.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace brimlet {

/// A folder whose name ends so belongs to a bucket, whatever it lies in.
struct BucketSuffix {
    std::string_view suffix;
    StorageBucket bucket;
};

/// Where the bucket of a place comes from.
enum class BucketSource : std::uint8_t {
    place,           ///< the row names it
    none,            ///< nowhere: the files below decide
    parent,          ///< the folder around it
    parentIfAppData, ///< the folder around it where that is `appData`, else nowhere
};

/// A folder and all that lies below it. The row with the most components decides; where two have as many,
/// one that names a component goes before one that leaves it open.
struct BucketPlace {
    std::string_view path; ///< absolute; a component "*" stands for any one, "abc*" for any that begins so
    BucketSource source = BucketSource::place;
    StorageBucket bucket = StorageBucket::other;
};

/// One operating system's rules on folders, as data. Comparisons are exact and case-sensitive.
struct FolderTables {
    std::span<const BucketSuffix> bucketSuffixes;
    std::span<const std::string_view> developerNames; ///< folders that hold a developer's tools and products
    std::span<const BucketPlace> bucketPlaces;
    std::span<const std::string_view> packageExtensions; ///< of folders that are shown as one item
    std::string_view applicationSuffix;                  ///< of folders that are applications
};

class FolderRules {
public:
    /// What `tables` refers to must outlive the rules.
    explicit FolderRules(const FolderTables& tables);

    /// The bucket of a directory; the first rule that applies decides.
    /// name        last path component
    /// components  non-empty components of the normalised path, `name` included; may be empty for "/"; those
    ///             beyond mostPathComponents may be left out
    /// inherited   the parent's bucket, empty where there is no parent or the parent is `other`
    /// returns     empty where no rule gives a bucket
    std::optional<StorageBucket> bucket(std::string_view name, std::span<const std::string_view> components,
                                        std::optional<StorageBucket> inherited) const;

    /// Whether a directory of this name is shown as one item: the text after its last dot is a package
    /// extension.
    bool isPackage(std::string_view name) const;

    /// `application` or `other`.
    FileKind kind(std::string_view name) const;

    /// How many leading components of a path its bucket depends on, besides the name.
    std::size_t depth() const { return m_depth; }

    /// No table's rows are longer.
    static constexpr std::size_t mostPathComponents = 6;

private:
    struct Place {
        std::string_view name; ///< one component, or what it begins with
        bool isPrefix = false;
        const BucketPlace* row = nullptr;
        std::vector<Place> below; ///< whole names before beginnings
    };

    void add(const BucketPlace& row);
    const BucketPlace* place(std::span<const std::string_view> components) const;

    FolderTables m_tables;
    Place m_root;
    std::size_t m_depth = 0;
};

} // namespace brimlet
