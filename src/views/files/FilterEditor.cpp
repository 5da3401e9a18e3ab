#include "views/files/FilterEditor.h"

#include "app/state/NavigationState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "views/nodes/NodeLook.h"

#include <algorithm>
#include <array>
#include <QColor>

namespace brimlet {

namespace {

struct SizeOption {
    const char* label;
    std::int64_t minSize;
};

constexpr std::int64_t mebibyte = 1'048'576;
constexpr std::int64_t gibibyte = 1'073'741'824;

constexpr std::array<SizeOption, 7> sizes = {{
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "Any size"), 0},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 1 MB"), mebibyte},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 10 MB"), 10 * mebibyte},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 100 MB"), 100 * mebibyte},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 500 MB"), 500 * mebibyte},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 1 GB"), gibibyte},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 5 GB"), 5 * gibibyte},
}};

struct AgeOption {
    const char* label;
    std::optional<int> days;
};

constexpr std::array<AgeOption, 6> ages = {{
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "Any date"), std::nullopt},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "Unchanged > 1 month"), 30},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 3 months"), 90},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 6 months"), 180},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 1 year"), 365},
    {QT_TRANSLATE_NOOP("brimlet::FilterEditor", "> 2 years"), 730},
}};

template <typename Options, typename Value, typename Field>
int indexOf(const Options& options, const Value& value, Field field) {
    const auto found = std::ranges::find(options, value, field);
    return found != options.end() ? static_cast<int>(found - options.begin()) : -1;
}

template <typename Options>
bool isIndexOf(const Options& options, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < options.size();
}

} // namespace

void FilterEditor::setShared(NavigationState* shared) {
    if (m_shared == shared)
        return;
    if (m_shared)
        m_shared->disconnect(this);
    m_shared = shared;
    if (m_shared)
        connect(m_shared, &NavigationState::largeFilterChanged, this, &FilterEditor::changed);
    emit sharedChanged();
    emit changed();
}

void FilterEditor::setValue(FileFilter filter) {
    if (m_shared) {
        m_shared->setLargeFilter(std::move(filter));
    } else if (m_own != filter) {
        m_own = std::move(filter);
        emit changed();
    }
}

void FilterEditor::setQuery(const QString& query) {
    edit([&](FileFilter& filter) { filter.query = query.toStdString(); });
}

int FilterEditor::sizeIndex() const {
    return indexOf(sizes, value().minSize, &SizeOption::minSize);
}

void FilterEditor::setSizeIndex(int index) {
    if (isIndexOf(sizes, index))
        edit([&](FileFilter& filter) { filter.minSize = sizes[static_cast<std::size_t>(index)].minSize; });
}

int FilterEditor::ageIndex() const {
    return indexOf(ages, value().modifiedOlderThanDays, &AgeOption::days);
}

void FilterEditor::setAgeIndex(int index) {
    if (isIndexOf(ages, index))
        edit([&](FileFilter& filter) {
            filter.modifiedOlderThanDays = ages[static_cast<std::size_t>(index)].days;
        });
}

int FilterEditor::bucketIndex() const {
    return value().bucket ? static_cast<int>(*value().bucket) + 1 : 0;
}

void FilterEditor::setBucketIndex(int index) {
    if (index < 0 || index > static_cast<int>(storageBucketCount))
        return;
    edit([&](FileFilter& filter) {
        filter.bucket.reset();
        if (index > 0)
            filter.bucket = allStorageBuckets()[static_cast<std::size_t>(index) - 1];
    });
}

QStringList FilterEditor::sizeOptions() const {
    QStringList labels;
    for (const SizeOption& one : sizes)
        labels << tr(one.label);
    return labels;
}

QStringList FilterEditor::ageOptions() const {
    QStringList labels;
    for (const AgeOption& one : ages)
        labels << tr(one.label);
    return labels;
}

QStringList FilterEditor::bucketOptions() const {
    QStringList labels = {tr("All categories")};
    for (const StorageBucket bucket : allStorageBuckets())
        labels << translatedText(look(bucket).title);
    return labels;
}

QVariantList FilterEditor::kindChips() const {
    QVariantList chips;
    for (const FileKind kind : allFileKinds()) {
        chips << QVariantMap{{QStringLiteral("title"), translatedText(look(kind).title)},
                             {QStringLiteral("symbol"), shownText(look(kind).symbol)},
                             {QStringLiteral("color"), QColor::fromRgb(look(kind).color)},
                             {QStringLiteral("active"), value().kinds.contains(kind)}};
    }
    return chips;
}

QString FilterEditor::pathPrefix() const {
    return value().pathPrefix ? shownText(displayPath(*value().pathPrefix, m_homeFolder.toStdString()))
                              : QString();
}

void FilterEditor::toggleKind(int index) {
    if (!isIndexOf(allFileKinds(), index))
        return;
    const FileKind kind = allFileKinds()[static_cast<std::size_t>(index)];
    edit([&](FileFilter& filter) {
        if (filter.kinds.erase(kind) == 0)
            filter.kinds.insert(kind);
    });
}

void FilterEditor::clearPathPrefix() {
    edit([](FileFilter& filter) { filter.pathPrefix.reset(); });
}

} // namespace brimlet
