// The window in which the operator chooses a cutting process and edits its defaults.
//
// Every edit goes to the table at once; process.dat is written only when the window is closed and
// the operator agrees to save.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "process/process_table.h"
#include "views/basic_controls.h"
#include "views/form.h"
#include "views/lists.h"
#include "views/text_box.h"

namespace process {

class FrmProcessDefaults : public views::Form {
  public:
    FrmProcessDefaults();

    // Shows process `number`, counted from 1, which must be the current one: choosing its options
    // writes their codes back to the record. Sets ProcessChanged. Throws errors::FatalError for
    // a number outside the table.
    void FillProcessControls(int number);

    views::Label Label1{*this, "Label1", " Process : "};
    views::ComboBox cboProcess{*this, "cboProcess", views::ComboBox::Style::kListOnly};

    views::Frame property{*this, "property", "Default Properties"};
    views::Label Label2{*this, "Label2", " Rapid (mm/min) : "};
    views::TextBox txtRapid{*this, "txtRapid"};
    views::Label Label7{*this, "Label7", "Line Mark (mm / min)"};
    views::TextBox txtLineMarkRate{*this, "txtLineMarkRate"};

    views::Frame Frame3{*this, "Frame3", "Lead In"};
    views::OptionGroup leadInGroup;
    std::array<views::OptionButton, 3> optLeadIn{{{*this, "optLeadIn(0)", "&Line", leadInGroup},
                                                  {*this, "optLeadIn(1)", "&Arc 90", leadInGroup},
                                                  {*this, "optLeadIn(2)", "Arc 180", leadInGroup}}};
    views::Label Label3{*this, "Label3", "Angle"};
    views::TextBox txtLeadInAngle{*this, "txtLeadInAngle"};
    views::CheckBox chkLeadInExtension{*this, "chkLeadInExtension", "&Extension"};

    views::Frame Frame2{*this, "Frame2", "Lead Out"};
    views::OptionGroup leadOutGroup;
    std::array<views::OptionButton, 4> optLeadOut{
        {{*this, "optLeadOut(0)", "L&ine", leadOutGroup},
         {*this, "optLeadOut(1)", "A&rc 90", leadOutGroup},
         {*this, "optLeadOut(2)", "N&one", leadOutGroup},
         {*this, "optLeadOut(3)", "Arc 180", leadOutGroup}}};
    views::Label Label4{*this, "Label4", "Angle"};
    views::TextBox txtLeadOutAngle{*this, "txtLeadOutAngle"};
    views::Label Label5{*this, "Label5", "   % of Leadin"};
    views::TextBox txtLeadoutPercent{*this, "txtLeadoutPercent"};
    views::Label Label6{*this, "Label6", "  O&verrun (mm)"};
    views::TextBox txtLeadoutOverrun{*this, "txtLeadoutOverrun"};
    views::CheckBox chkLeadOutExtension{*this, "chkLeadOutExtension", "E&xtension"};

    views::Frame fraMajorDirection{*this, "fraMajorDirection", "Major Direction"};
    views::OptionGroup majorGroup;
    std::array<views::OptionButton, 2> optMajorDirection{
        {{*this, "optMajorDirection(0)", "An&ticlockwise", majorGroup},
         {*this, "optMajorDirection(1)", "&Clockwise", majorGroup}}};
    views::Frame fraMinorDirection{*this, "fraMinorDirection", "Minor Direction"};
    views::OptionGroup minorGroup;
    std::array<views::OptionButton, 2> optMinorDirection{
        {{*this, "optMinorDirection(0)", "Anticlock&wise", minorGroup},
         {*this, "optMinorDirection(1)", "Cloc&kwise", minorGroup}}};
    views::Frame frmMinorKerf{*this, "frmMinorKerf", "Open Minor Kerf "};
    views::OptionGroup openMinorGroup;
    std::array<views::OptionButton, 3> optOpenMinor{
        {{*this, "optOpenMinor(0)", "L&eft", openMinorGroup},
         {*this, "optOpenMinor(1)", "Ce&ntre", openMinorGroup},
         {*this, "optOpenMinor(2)", "Ri&ght", openMinorGroup}}};
    views::CheckBox chkAddKerf{*this, "chkAddKerf", "Add Kerf to Nest"};

    views::CommandButton cmdAddProcess{*this, "cmdAddProcess", "Add &Process"};
    views::CommandButton cmdDeleteProcess{*this, "cmdDeleteProcess", "&Delete Process"};
    views::CommandButton cmdThicknessData{*this, "cmdThicknessData", "T&hickness Data"};
    views::CommandButton cmdClose{*this, "cmdClose", "Close"};

  protected:
    void Load() override;

  private:
    void Arrange();
    void BindOptions();
    void BindRate(views::TextBox& box, float ProcessRecord::* field);
    void BindNumber(views::TextBox& box, std::int16_t ProcessRecord::* field, int (*limit)(int));
    void BindCheck(views::CheckBox& box, std::int16_t ProcessRecord::* field);
    void BindBox(views::TextBox& box,
                 std::function<std::string(ProcessRecord& record, double value)> keep);

    void SelectProcess();
    void ThicknessDataClick();
    void AddProcessClick();
    void DeleteProcessClick();
    void ShowNoProcess();
    void CloseClick();
};

}  // namespace process
