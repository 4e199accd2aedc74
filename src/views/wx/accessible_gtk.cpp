// The accessibility toolkit of GTK. Aids run in programs of their own and ask over a bus, which
// answers from the objects that are made here.
#include <wx/window.h>

#include <gtk/gtk-a11y.h>
#include <gtk/gtk.h>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "views/wx/accessible.h"

namespace views::wx {
namespace {

class GtkTeller;

// The object of the whole grid, and that of a cell or heading. An aid may hold either longer than
// there is a window; they have no teller then.
struct TableObject {
    GtkWidgetAccessible base;
    GtkTeller* teller;
};
struct TableClass {
    GtkWidgetAccessibleClass base;
};
struct CellObject {
    AtkObject base;
    GtkTeller* teller;
    CellAt at;
};
struct CellClass {
    AtkObjectClass base;
};

GType TableType();
GType CellType();

class GtkTeller : public GridTeller {
  public:
    GtkTeller(GtkWidget* widget, ToldGrid& grid);
    ~GtkTeller() override;
    GtkTeller(const GtkTeller&) = delete;
    GtkTeller& operator=(const GtkTeller&) = delete;

    void SetName(const wxString& name) override { atk_object_set_name(table_, name.utf8_str()); }
    void TellCurrent() override;
    void TellTexts() override;

    ToldGrid& Grid() const { return grid_; }
    AtkObject* Table() const { return table_; }
    // The object of a cell, made when it is first asked for; null outside of the grid.
    AtkObject* Cell(CellAt at);
    bool HasFocus(CellAt at) const {
        return widget_ != nullptr && gtk_widget_has_focus(widget_) && grid_.ToldCurrent() == at;
    }

  private:
    struct Told {
        CellObject* object;
        wxString text;
    };
    void TellRows();
    void TellText(Told& cell);
    static void LetGo(CellObject* cell);

    GtkWidget* widget_;
    ToldGrid& grid_;
    AtkObject* table_;
    std::map<CellAt, Told> cells_;
    int rows_;
    std::optional<CellAt> current_;
};

constexpr char kTable[] = "sysman-told-table";

// GTK asks the class of a widget for the object that stands for it. That of the toolkit's drawn
// windows is one class for all of them, and the grids are marked.
AtkObject* (*g_usual)(GtkWidget*) = nullptr;

AtkObject* ObjectOf(GtkWidget* widget) {
    void* const table = g_object_get_data(G_OBJECT(widget), kTable);
    return table != nullptr ? static_cast<AtkObject*>(table) : g_usual(widget);
}

GtkTeller::GtkTeller(GtkWidget* widget, ToldGrid& grid)
    : widget_(widget),
      grid_(grid),
      table_(ATK_OBJECT(g_object_new(TableType(), "widget", widget, nullptr))),
      rows_(grid.ToldRows()) {
    reinterpret_cast<TableObject*>(table_)->teller = this;
    atk_object_initialize(table_, widget);
    atk_object_set_role(table_, ATK_ROLE_TABLE);
    g_object_add_weak_pointer(G_OBJECT(widget), reinterpret_cast<void**>(&widget_));
    GtkWidgetClass* const kind = GTK_WIDGET_GET_CLASS(widget);
    if (kind->get_accessible != ObjectOf) {
        g_usual = kind->get_accessible;
        kind->get_accessible = ObjectOf;
    }
    g_object_set_data(G_OBJECT(widget), kTable, table_);
}

GtkTeller::~GtkTeller() {
    for (auto& [at, cell] : cells_) LetGo(cell.object);
    reinterpret_cast<TableObject*>(table_)->teller = nullptr;
    gtk_accessible_set_widget(GTK_ACCESSIBLE(table_), nullptr);  // tells that it is gone
    if (widget_ != nullptr) {
        g_object_set_data(G_OBJECT(widget_), kTable, nullptr);
        g_object_remove_weak_pointer(G_OBJECT(widget_), reinterpret_cast<void**>(&widget_));
    }
    g_object_unref(table_);
}

void GtkTeller::LetGo(CellObject* cell) {
    cell->teller = nullptr;
    atk_object_notify_state_change(&cell->base, ATK_STATE_DEFUNCT, TRUE);
    g_object_unref(cell);
}

AtkObject* GtkTeller::Cell(CellAt at) {
    if (!grid_.Has(at)) return nullptr;
    auto& told = cells_[at];
    if (told.object == nullptr) {
        told.object = static_cast<CellObject*>(g_object_new(CellType(), nullptr));
        told.object->teller = this;
        told.object->at = at;
        told.text = grid_.ToldText(at);
        atk_object_set_parent(&told.object->base, table_);
        atk_object_set_name(&told.object->base, grid_.NameOf(at).utf8_str());
        atk_object_set_role(&told.object->base, at.row < 0 ? ATK_ROLE_TABLE_COLUMN_HEADER
                                                : at.column < grid_.HeadingColumns()
                                                    ? ATK_ROLE_TABLE_ROW_HEADER
                                                    : ATK_ROLE_TABLE_CELL);
    }
    return &told.object->base;
}

void GtkTeller::TellCurrent() {
    const auto before = std::exchange(current_, grid_.ToldCurrent());
    AtkObject* const cell = current_ ? Cell(*current_) : nullptr;
    if (cell == nullptr) return;
    if (before && before != current_) {
        if (AtkObject* const old = Cell(*before)) {
            atk_object_notify_state_change(old, ATK_STATE_FOCUSED, FALSE);
        }
    }
    g_signal_emit_by_name(table_, "active-descendant-changed", cell);
    if (HasFocus(*current_)) atk_object_notify_state_change(cell, ATK_STATE_FOCUSED, TRUE);
}

void GtkTeller::TellTexts() {
    TellRows();
    for (auto& [at, cell] : cells_) TellText(cell);
}

void GtkTeller::TellRows() {
    const int before = std::exchange(rows_, grid_.ToldRows());
    const int more = rows_ - before;
    if (more == 0) return;
    std::erase_if(cells_, [this](const auto& entry) {
        if (grid_.Has(entry.first)) return false;
        LetGo(entry.second.object);
        return true;
    });
    g_signal_emit_by_name(table_, more > 0 ? "row-inserted" : "row-deleted",
                          std::min(before, rows_), std::abs(more));
}

// As an entry tells what was typed: from the first character that differs.
void GtkTeller::TellText(Told& cell) {
    const wxString now = grid_.ToldText(cell.object->at);
    if (now == cell.text) return;
    size_t same = 0;
    while (same < std::min(now.length(), cell.text.length()) && now[same] == cell.text[same])
        ++same;
    const wxString gone = cell.text.substr(same), come = now.substr(same);
    cell.text = now;
    const auto tell = [&](const char* what, const wxString& text) {
        if (text.empty()) return;
        g_signal_emit_by_name(cell.object, what, static_cast<int>(same),
                              static_cast<int>(text.length()), text.utf8_str().data());
    };
    tell("text-remove", gone);
    tell("text-insert", come);
}

// What the bus asks, of the table.

ToldGrid* GridOf(void* object) {
    GtkTeller* const teller = static_cast<TableObject*>(object)->teller;
    return teller == nullptr ? nullptr : &teller->Grid();
}

AtkObject* RefCell(void* table, CellAt at) {
    GtkTeller* const teller = static_cast<TableObject*>(table)->teller;
    AtkObject* const cell = teller == nullptr ? nullptr : teller->Cell(at);
    return cell == nullptr ? nullptr : ATK_OBJECT(g_object_ref(cell));
}

int TableChildren(AtkObject* table) {
    const ToldGrid* const grid = GridOf(table);
    return grid == nullptr ? 0 : grid->ToldCells();
}

AtkObject* TableChild(AtkObject* table, int index) {
    const ToldGrid* const grid = GridOf(table);
    if (grid == nullptr || index < 0 || index >= grid->ToldCells()) return nullptr;
    return RefCell(table, grid->CellOf(index));
}

// Aids need not keep all cells in mind; they are told which one is the current.
AtkStateSet* TableStates(AtkObject* table) {
    void* const parent = g_type_class_peek_parent(G_OBJECT_GET_CLASS(table));
    AtkStateSet* const states = ATK_OBJECT_CLASS(parent)->ref_state_set(table);
    atk_state_set_add_state(states, ATK_STATE_MANAGES_DESCENDANTS);
    // GTK leaves it to a cell, which it would know.
    GtkWidget* const widget = gtk_accessible_get_widget(GTK_ACCESSIBLE(table));
    if (widget != nullptr && gtk_widget_has_focus(widget)) {
        atk_state_set_add_state(states, ATK_STATE_FOCUSED);
    }
    return states;
}

AtkObject* TableCellUnder(AtkComponent* table, int x, int y, AtkCoordType type) {
    const ToldGrid* const grid = GridOf(table);
    if (grid == nullptr) return nullptr;
    int left = 0, top = 0, screenLeft = 0, screenTop = 0;
    atk_component_get_extents(table, &left, &top, nullptr, nullptr, type);
    atk_component_get_extents(table, &screenLeft, &screenTop, nullptr, nullptr, ATK_XY_SCREEN);
    const auto cell = grid->CellUnder(wxPoint(x + screenLeft - left, y + screenTop - top));
    return cell ? RefCell(table, *cell) : nullptr;
}

int TableSelectedRows(AtkTable* table, int** selected) {
    const ToldGrid* const grid = GridOf(table);
    std::vector<int> rows;
    for (int row = 0; grid != nullptr && row < grid->ToldRows(); ++row) {
        if (grid->IsMarked({row, grid->ToldColumns() - 1}) &&
            grid->IsMarked({row, grid->HeadingColumns()})) {
            rows.push_back(row);
        }
    }
    *selected = g_new(int, rows.size());
    std::copy(rows.begin(), rows.end(), *selected);
    return static_cast<int>(rows.size());
}

void InitTable(void* type, void*) {
    static_cast<AtkObjectClass*>(type)->get_n_children = TableChildren;
    static_cast<AtkObjectClass*>(type)->ref_child = TableChild;
    static_cast<AtkObjectClass*>(type)->ref_state_set = TableStates;
}

void InitTableComponent(void* interface, void*) {
    static_cast<AtkComponentIface*>(interface)->ref_accessible_at_point = TableCellUnder;
}

void InitTableTable(void* interface, void*) {
    auto& table = *static_cast<AtkTableIface*>(interface);
    table.ref_at = [](AtkTable* of, int row, int column) { return RefCell(of, {row, column}); };
    table.get_n_rows = [](AtkTable* of) {
        const ToldGrid* const grid = GridOf(of);
        return grid == nullptr ? 0 : grid->ToldRows();
    };
    table.get_n_columns = [](AtkTable* of) {
        const ToldGrid* const grid = GridOf(of);
        return grid == nullptr ? 0 : grid->ToldColumns();
    };
    table.get_index_at = [](AtkTable* of, int row, int column) {
        const ToldGrid* const grid = GridOf(of);
        return grid == nullptr || !grid->Has({row, column}) ? -1 : grid->IndexOf({row, column});
    };
    table.get_row_at_index = [](AtkTable* of, int index) {
        return index < 0 || index >= TableChildren(ATK_OBJECT(of)) ? -1
                                                                   : GridOf(of)->CellOf(index).row;
    };
    table.get_column_at_index = [](AtkTable* of, int index) {
        return index < 0 || index >= TableChildren(ATK_OBJECT(of))
                   ? -1
                   : GridOf(of)->CellOf(index).column;
    };
    table.get_row_extent_at = [](AtkTable*, int, int) { return 1; };
    table.get_column_extent_at = [](AtkTable*, int, int) { return 1; };
    // Not handed over, as the caller of these two gives nothing back.
    table.get_column_header = [](AtkTable* of, int column) -> AtkObject* {
        GtkTeller* const teller = reinterpret_cast<TableObject*>(of)->teller;
        return teller == nullptr ? nullptr : teller->Cell({-1, column});
    };
    table.get_row_header = [](AtkTable* of, int row) -> AtkObject* {
        GtkTeller* const teller = reinterpret_cast<TableObject*>(of)->teller;
        return teller == nullptr || teller->Grid().HeadingColumns() == 0 ? nullptr
                                                                         : teller->Cell({row, 0});
    };
    table.is_selected = [](AtkTable* of, int row, int column) -> int {
        const ToldGrid* const grid = GridOf(of);
        return grid != nullptr && grid->IsMarked({row, column});
    };
    table.get_selected_rows = TableSelectedRows;
}

// What it asks, of a cell.

ToldGrid* GridOfCell(const void* object) {
    GtkTeller* const teller = static_cast<const CellObject*>(object)->teller;
    return teller == nullptr ? nullptr : &teller->Grid();
}

CellAt At(const void* cell) {
    return static_cast<const CellObject*>(cell)->at;
}

wxString TextOf(void* cell) {
    const ToldGrid* const grid = GridOfCell(cell);
    return grid == nullptr || !grid->Has(At(cell)) ? wxString() : grid->ToldText(At(cell));
}

int CellIndex(AtkObject* cell) {
    const ToldGrid* const grid = GridOfCell(cell);
    return grid == nullptr ? -1 : grid->IndexOf(At(cell));
}

AtkStateSet* CellStates(AtkObject* object) {
    AtkStateSet* const states = atk_state_set_new();
    GtkTeller* const teller = reinterpret_cast<CellObject*>(object)->teller;
    const CellAt at = At(object);
    if (teller == nullptr || !teller->Grid().Has(at)) {
        atk_state_set_add_state(states, ATK_STATE_DEFUNCT);
        return states;
    }
    const auto add = [states](AtkStateType state, bool has) {
        if (has) atk_state_set_add_state(states, state);
    };
    const ToldGrid& grid = teller->Grid();
    const bool cell = at.row >= 0 && at.column >= grid.HeadingColumns();
    for (const AtkStateType state : {ATK_STATE_ENABLED, ATK_STATE_SENSITIVE, ATK_STATE_VISIBLE}) {
        add(state, true);
    }
    add(ATK_STATE_SHOWING, !grid.PlaceOf(at).IsEmpty());
    add(ATK_STATE_FOCUSABLE, cell);
    add(ATK_STATE_SELECTABLE, cell);
    add(ATK_STATE_SELECTED, cell && grid.IsMarked(at));
    add(ATK_STATE_FOCUSED, teller->HasFocus(at));
    add(ATK_STATE_ACTIVE, grid.ToldCurrent() == at);
    return states;
}

void CellExtents(AtkComponent* cell, int* x, int* y, int* width, int* height, AtkCoordType type) {
    wxRect place;
    GtkTeller* const teller = reinterpret_cast<CellObject*>(cell)->teller;
    if (teller != nullptr && teller->Grid().Has(At(cell))) {
        place = teller->Grid().PlaceOf(At(cell));
        auto* const table = ATK_COMPONENT(teller->Table());
        int left = 0, top = 0, screenLeft = 0, screenTop = 0;
        atk_component_get_extents(table, &left, &top, nullptr, nullptr, type);
        atk_component_get_extents(table, &screenLeft, &screenTop, nullptr, nullptr, ATK_XY_SCREEN);
        place.Offset(left - screenLeft, top - screenTop);
    }
    *x = place.x;
    *y = place.y;
    *width = place.width;
    *height = place.height;
}

int CellGrabFocus(AtkComponent* cell) {
    ToldGrid* const grid = GridOfCell(cell);
    return grid != nullptr && grid->MoveTo(At(cell));
}

// The part of a text from `start` to before `end`, -1 for its end; the caller frees it.
char* Part(const wxString& text, int start, int end) {
    const int length = static_cast<int>(text.length());
    start = std::clamp(start, 0, length);
    end = end < 0 ? length : std::clamp(end, start, length);
    return g_strdup(text.substr(start, end - start).utf8_str());
}

// A cell is one line, one sentence and one word to whoever asks for less than a character.
char* CellString(AtkText* cell, int offset, AtkTextGranularity granularity, int* start, int* end) {
    const wxString text = TextOf(cell);
    const bool character = granularity == ATK_TEXT_GRANULARITY_CHAR;
    *start = character ? offset : 0;
    *end = character ? offset + 1 : static_cast<int>(text.length());
    return Part(text, *start, *end);
}

void InitCell(void* type, void*) {
    static_cast<AtkObjectClass*>(type)->get_index_in_parent = CellIndex;
    static_cast<AtkObjectClass*>(type)->ref_state_set = CellStates;
}

void InitCellComponent(void* interface, void*) {
    static_cast<AtkComponentIface*>(interface)->get_extents = CellExtents;
    static_cast<AtkComponentIface*>(interface)->grab_focus = CellGrabFocus;
}

void InitCellText(void* interface, void*) {
    auto& text = *static_cast<AtkTextIface*>(interface);
    text.get_text = [](AtkText* of, int start, int end) { return Part(TextOf(of), start, end); };
    text.get_string_at_offset = CellString;
    text.get_character_count = [](AtkText* of) { return static_cast<int>(TextOf(of).length()); };
    text.get_character_at_offset = [](AtkText* of, int offset) -> gunichar {
        const wxString all = TextOf(of);
        const auto at = static_cast<size_t>(offset);
        return offset >= 0 && at < all.length() ? all[at].GetValue() : 0;
    };
    // What is typed goes to the end of the cell.
    text.get_caret_offset = [](AtkText* of) { return static_cast<int>(TextOf(of).length()); };
}

void InitCellTableCell(void* interface, void*) {
    auto& cell = *static_cast<AtkTableCellIface*>(interface);
    cell.get_column_span = [](AtkTableCell*) { return 1; };
    cell.get_row_span = [](AtkTableCell*) { return 1; };
    cell.get_position = [](AtkTableCell* of, int* row, int* column) -> int {
        *row = At(of).row;
        *column = At(of).column;
        return At(of).row >= 0;
    };
    cell.get_table = [](AtkTableCell* of) -> AtkObject* {
        AtkObject* const table = atk_object_peek_parent(ATK_OBJECT(of));
        return table == nullptr ? nullptr : ATK_OBJECT(g_object_ref(table));
    };
    static const auto headings = [](AtkTableCell* of, CellAt heading, bool there) {
        GPtrArray* const found = g_ptr_array_new_with_free_func(g_object_unref);
        GtkTeller* const teller = reinterpret_cast<CellObject*>(of)->teller;
        AtkObject* const object = teller == nullptr || !there ? nullptr : teller->Cell(heading);
        if (object != nullptr) g_ptr_array_add(found, g_object_ref(object));
        return found;
    };
    cell.get_column_header_cells = [](AtkTableCell* of) {
        return headings(of, {-1, At(of).column}, At(of).row >= 0);
    };
    cell.get_row_header_cells = [](AtkTableCell* of) {
        const ToldGrid* const grid = GridOfCell(of);
        const bool there = grid != nullptr && At(of).column >= grid->HeadingColumns();
        return headings(of, {At(of).row, 0}, there && grid->HeadingColumns() > 0);
    };
}

GType MakeType(const char* name, GType parent, size_t classSize, GClassInitFunc init, size_t size,
               std::initializer_list<std::pair<GType, GInterfaceInitFunc>> interfaces) {
    const GType type = g_type_register_static_simple(parent, name, static_cast<guint>(classSize),
                                                     init, static_cast<guint>(size), nullptr,
                                                     static_cast<GTypeFlags>(0));
    for (const auto& [interface, fill] : interfaces) {
        const GInterfaceInfo info = {fill, nullptr, nullptr};
        g_type_add_interface_static(type, interface, &info);
    }
    return type;
}

GType TableType() {
    static const GType type =
        MakeType("SysmanToldTable", GTK_TYPE_WIDGET_ACCESSIBLE, sizeof(TableClass), InitTable,
                 sizeof(TableObject),
                 {{ATK_TYPE_COMPONENT, InitTableComponent}, {ATK_TYPE_TABLE, InitTableTable}});
    return type;
}

GType CellType() {
    static const GType type =
        MakeType("SysmanToldCell", ATK_TYPE_OBJECT, sizeof(CellClass), InitCell, sizeof(CellObject),
                 {{ATK_TYPE_COMPONENT, InitCellComponent},
                  {ATK_TYPE_TEXT, InitCellText},
                  {ATK_TYPE_TABLE_CELL, InitCellTableCell}});
    return type;
}

// The part that gets the focus may lie inside of what the toolkit knows of a control, like the
// button of a combo box.
void NameAll(GtkWidget* widget, void* name) {
    atk_object_set_name(gtk_widget_get_accessible(widget), static_cast<const char*>(name));
    if (GTK_IS_SCROLLED_WINDOW(widget) || GTK_IS_COMBO_BOX(widget)) {
        gtk_container_forall(GTK_CONTAINER(widget), NameAll, name);
    }
}

}  // namespace

void SetSpokenName(wxWindow* window, const wxString& name) {
    NameAll(window->GetHandle(), const_cast<char*>(name.utf8_str().data()));
}

std::unique_ptr<GridTeller> MakeGridTeller(wxWindow* window, ToldGrid& grid) {
    return std::make_unique<GtkTeller>(window->GetHandle(), grid);
}

}  // namespace views::wx
