// The rows of a table of nodes: sorted and filtered away from the main thread, with a selection that survives
// both. What a table shows is set by the models derived from this one. Main thread.
#pragma once

#include "app/background/SlicedWork.h"
#include "views/base/AppStateListModel.h"
#include "views/nodes/NodePlans.h"
#include "views/nodes/RowSelection.h"
#include "views/nodes/RowWorker.h"

#include <memory>

namespace brimlet {

class NodeTableModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Use one of the models that say what is listed")

    Q_PROPERTY(bool ready READ isReady NOTIFY rowsChanged) ///< the rows are those of the list it has now
    Q_PROPERTY(int count READ count NOTIFY rowsChanged)
    Q_PROPERTY(double totalSize READ totalSize NOTIFY rowsChanged)
    Q_PROPERTY(int sortColumn READ sortColumn NOTIFY sortChanged)
    Q_PROPERTY(bool sortDescending READ sortDescending NOTIFY sortChanged)
    Q_PROPERTY(int selectedCount READ selectedCount NOTIFY selectionChanged)
    Q_PROPERTY(double selectedSize READ selectedSize NOTIFY selectionChanged)
    Q_PROPERTY(
        int currentRow READ currentRow NOTIFY selectionChanged) ///< where the keyboard is; -1 for nowhere

public:
    /// As NodeColumn, in its order; Risk can't be sorted by.
    enum Column { Name, Size, Kind, Category, Modified, LastOpened, FileCount, Risk };
    Q_ENUM(Column)

    enum Role {
        NameRole = Qt::UserRole,
        FolderRole, ///< the parent folder, as shown
        SizeRole,
        SizeFractionRole, ///< of the largest row
        ShareRole,        ///< of what the table is about, as text
        KindTextRole,
        KindColorRole,
        CategoryRole,
        CategoryColorRole,
        ModifiedRole,
        LastOpenedRole,
        FileCountRole, ///< text; "—" for a file
        RiskRole,      ///< 0 safe, 1 review, 2 protected
        DirectoryRole,
        UnreadableRole,
        SelectedRole,
    };

    explicit NodeTableModel(QObject* parent = nullptr);
    ~NodeTableModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    bool isReady() const { return m_isReady; }
    int count() const { return static_cast<int>(m_rows->order.size()); }
    double totalSize() const { return static_cast<double>(m_rows->totalSize); }
    int sortColumn() const { return static_cast<int>(m_sort.column); }
    bool sortDescending() const { return m_sort.direction == SortDirection::descending; }
    int selectedCount() const { return static_cast<int>(m_selection.count()); }
    double selectedSize() const { return static_cast<double>(m_selection.totalSize()); }
    int currentRow() const;

    /// The column's own first direction, or the other one where it is sorted by already.
    Q_INVOKABLE void sortBy(int column);

    /// A click on a row: Shift extends, Control or Command toggles.
    Q_INVOKABLE void click(int row, int modifiers);
    /// Goes there by keyboard; rows outside are brought to the nearest end.
    Q_INVOKABLE void goTo(int row, bool extend);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void clearSelection();
    Q_INVOKABLE bool isSelected(int row) const;
    Q_INVOKABLE int firstSelectedRow() const; ///< -1 where none is

    /// The next row, from the current one on and around, whose name begins with the text; -1 where none does.
    Q_INVOKABLE int rowBeginningWith(const QString& text) const;

    /// What a cell of a row has to say beyond what it shows: the whole path, or the reason of the risk. Empty
    /// for other cells, and outside the rows.
    Q_INVOKABLE QString explanation(int row, const QString& cell) const;

    FileNode* nodeAt(int row) const;
    NodeChoice choice() const { return {m_columns, m_selection}; } ///< the selected rows
    std::vector<FileNode*> listedNodes() const; ///< in the order of the list, not of the rows
    std::shared_ptr<const ScanResult> scan() const { return m_columns->scan(); }

signals:
    void rowsChanged();
    void startedOver();      ///< the rows are of another list, filter or order: they are read from the top
    void rowWanted(int row); ///< this one is to be in sight
    void sortChanged();
    void selectionChanged();

protected:
    void watch(AppState& state) override;

    /// Lists all files of a scan that match. The same scan as before keeps its selection.
    void listFiles(std::shared_ptr<const ScanResult> scan, const FileFilter& filter);

    /// Lists what lies directly in a folder. The same folder as before keeps its selection.
    void listChildren(std::shared_ptr<const ScanResult> scan, const FileNode& folder);

    void listNothing();

    /// Selects a node once the rows are there, and wants it in sight. Does nothing where it is not listed.
    void chooseNode(const FileNode* node);

private:
    /// What a list takes over from the tree, node by node.
    struct Reading {
        std::shared_ptr<NodeColumns> columns;
        NodeBits deleted;
        std::size_t next = 0;
        const FileNode* folder = nullptr; ///< the files of one folder follow each other
        bool isFolderGone = false;
    };

    void startList(std::shared_ptr<NodeColumns> columns);
    void startReading(std::shared_ptr<NodeColumns> columns);
    static bool readSome(Reading& reading);
    void takeReading(Reading& reading);
    void requestRows();
    void showRows(std::shared_ptr<const NodeRows> rows);
    void takeRows(std::shared_ptr<const NodeRows> rows);
    void chooseWanted();
    void changeSelection();
    QVariant textData(const FileNode& node, int role) const;
    QVariant figureData(std::size_t position, int role) const;

    std::shared_ptr<NodeColumns> m_columns;
    std::shared_ptr<const NodeBits> m_deleted = std::make_shared<NodeBits>();
    std::pair<std::shared_ptr<NodeColumns>, int> m_readAt; ///< the list last read, and the tree's revision
    std::shared_ptr<const NodeRows> m_rows = std::make_shared<NodeRows>();
    bool m_isReady = false;
    bool m_startsOver = false;
    const FileNode* m_wanted = nullptr; ///< to be selected when the rows are there
    RowSelection m_selection;
    FileFilter m_filter;
    NodeSort m_sort;
    const FileNode* m_folder = nullptr; ///< whose children are listed; null for the files of a scan
    SlicedWork m_slices;                ///< a list that is being read; rows are asked for when it has been
    RowWorker m_worker;
};

} // namespace brimlet
