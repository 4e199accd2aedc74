#include "directories/print_directory.h"

#include <algorithm>

#include "app/sys_man.h"
#include "views/screen.h"

namespace directories {

FrmPrint::FrmPrint(app::SysMan& main) : Form("frmPrint", "Print Directory Data"), main_(main) {
    defaultButton = &cmdOK;
    closeButton = &cmdCancel;
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
    const bool production = main_.Kind() == app::DataKind::kProduction;
    for (views::CheckBox* category : {&chkComp, &chkGroups, &chkNest, &chkTape}) {
        category->SetEnabled(production);
        category->SetValue(production);
    }
}

Listing FrmPrint::ChosenListing() const {
    Listing listing;
    listing.drive = main_.drvList.Prefix();
    listing.kind = main_.Kind();
    listing.directories = main_.lstDirectory.Items();
    if (optSelDir.Value()) {
        listing.only = static_cast<std::size_t>(std::max(0, main_.lstDirectory.ListIndex()));
    }
    if (listing.kind == app::DataKind::kDesign) {
        listing.categories = {{"geometry", "Designs"}};
        return listing;
    }
    if (chkComp.Value()) listing.categories.push_back({"comp", "Components"});
    if (chkGroups.Value()) listing.categories.push_back({"group", "Groups"});
    if (chkNest.Value()) listing.categories.push_back({"nest", "Nests"});
    if (chkTape.Value()) listing.categories.push_back({"tape", "Tapes"});
    return listing;
}

void FrmPrint::OkClick() {
    {
        views::BusyPointer busy;
        PrintListing(ChosenListing(), lstSortBox, views::ThePrinter());
        views::ThePrinter().EndDocument();
    }
    Close();
}

}  // namespace directories
