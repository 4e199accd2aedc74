#include "directories/print_directory.h"

#include <utility>

#include "directories/directory_listing.h"
#include "views/screen.h"

namespace directories {

FrmPrint::FrmPrint(Listed listed)
    : Form("frmPrint", "Print Directory Data"), listed_(std::move(listed)) {
    defaultButton = &cmdOK;
    lstSortBox.SetVisible(false);
    lstSortBox.neverShown = true;

    using namespace views;
    SetLayout(Column({
        Row({optAllDir, optSelDir}),
        Row({Column({chkComp, chkGroups}), Column({chkNest, chkTape}), Stretch()}),
        Row({cmdSetup, Stretch(), cmdOK, cmdCancel}),
    }));

    cmdSetup.onClick = [this] { CMDialogPSetup.Show(); };
    cmdOK.onClick = [this] { OkClick(); };
    cmdCancel.onClick = [this] { Close(); };
}

void FrmPrint::Load() {
    optAllDir.SetValue(true);
    // Design directories have but one category.
    const bool production = listed_.area.kind == DataKind::kProduction;
    for (views::CheckBox* category : {&chkComp, &chkGroups, &chkNest, &chkTape}) {
        category->SetEnabled(production);
        category->SetValue(production);
    }
}

std::vector<Category> FrmPrint::TickedCategories() const {
    const auto& categories = CategoriesOf(listed_.area.kind);
    if (listed_.area.kind == DataKind::kDesign) return categories;
    std::vector<Category> ticked;
    std::size_t at = 0;
    for (const views::CheckBox* box : {&chkComp, &chkGroups, &chkNest, &chkTape}) {
        if (box->Value()) ticked.push_back(categories[at]);
        ++at;
    }
    return ticked;
}

void FrmPrint::OkClick() {
    {
        views::BusyPointer busy;
        Listed listed = listed_;
        if (!optSelDir.Value()) listed.chosen.reset();
        PrintListing(listed, TickedCategories(), lstSortBox, views::ThePrinter());
        views::ThePrinter().EndDocument();
    }
    Close();
}

}  // namespace directories
