#include "process/process_defaults.h"

#include <memory>
#include <string_view>
#include <utility>

#include "app/system_config.h"
#include "errors/errors.h"
#include "process/add_process.h"
#include "process/process_file.h"
#include "process/thickness_data.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"
#include "views/application.h"
#include "views/screen.h"

namespace process {
namespace {

constexpr std::array kLeadInCodes{kLeadLine, kLeadArc90, kLeadArc180};
constexpr std::array kLeadOutCodes{kLeadLine, kLeadArc90, kLeadNone, kLeadArc180};
constexpr std::array<std::int16_t, 2> kDirections{1, -1};
constexpr std::array<std::int16_t, 3> kKerfSides{1, 0, -1};

// The option of a lead code, -1 for none of them.
template <std::size_t Count>
int LeadOption(const std::array<std::string_view, Count>& codes, text::FixedText<4> lead) {
    const std::string_view exact = lead.View();
    for (std::size_t i = 0; i < Count; ++i) {
        if (codes[i] == exact) return static_cast<int>(i);
    }
    // Read from the file, the code of the quarter circle has lost its blank.
    return text::CleanText(lead) == "Arc" ? 1 : -1;
}

template <std::size_t Count>
int ValueOption(const std::array<std::int16_t, Count>& values, int value) {
    for (std::size_t i = 0; i < Count; ++i) {
        if (values[i] == value) return static_cast<int>(i);
    }
    return -1;
}

// Chooses one option, which runs its click handler, or clears them all.
template <std::size_t Count>
void ShowOption(std::array<views::OptionButton, Count>& options, int chosen) {
    if (chosen >= 0) return options[static_cast<std::size_t>(chosen)].SetValue(true);
    for (views::OptionButton& option : options) option.SetValue(false);
}

// Every edit of the operator enters the record here. Without a process there is nothing to edit.
template <class Change>
void Edit(const Change& change) {
    if (Shared().CurrentProcess <= 0) return;
    Shared().ProcessChanged = true;
    change(TheProcesses().Process(Shared().CurrentProcess));
}

// `store` takes the record and the index of the option.
template <std::size_t Count, class Store>
void OnClick(std::array<views::OptionButton, Count>& options, const Store& store) {
    for (std::size_t i = 0; i < Count; ++i) {
        options[i].onClick = [i, store] { Edit([&](ProcessRecord& record) { store(record, i); }); };
    }
}

int LimitLeadInAngle(int angle) {
    return angle < -360 ? -360 : angle > 360 ? 360 : angle;
}

// Unlike the lead-in's, an angle below the range goes to its upper end.
int LimitLeadOutAngle(int angle) {
    return angle < -360 || angle > 360 ? 360 : angle;
}

int NotNegative(int value) {
    return value < 0 ? 0 : value;
}

int AnyNumber(int value) {
    return value;
}

}  // namespace

FrmProcessDefaults::FrmProcessDefaults() : Form("frmProcessDefaults", "Process Defaults") {
    closeButton = &cmdClose;
    Arrange();

    cboProcess.onClick = [this] { SelectProcess(); };
    BindOptions();
    BindRate(txtRapid, &ProcessRecord::Rapid);
    BindRate(txtLineMarkRate, &ProcessRecord::LineMarkRate);
    BindNumber(txtLeadInAngle, &ProcessRecord::Angle, LimitLeadInAngle);
    BindNumber(txtLeadOutAngle, &ProcessRecord::Leadoutangle, LimitLeadOutAngle);
    BindNumber(txtLeadoutPercent, &ProcessRecord::LeadoutPercent, NotNegative);
    BindNumber(txtLeadoutOverrun, &ProcessRecord::LeadoutOverrun, AnyNumber);
    BindCheck(chkLeadInExtension, &ProcessRecord::Extension);
    BindCheck(chkLeadOutExtension, &ProcessRecord::Leadoutextension);
    BindCheck(chkAddKerf, &ProcessRecord::AddKerf);
    cmdAddProcess.onClick = [this] { AddProcessClick(); };
    cmdDeleteProcess.onClick = [this] { DeleteProcessClick(); };
    cmdThicknessData.onClick = [this] { ThicknessDataClick(); };
    cmdClose.onClick = [this] { CloseClick(); };
}

void FrmProcessDefaults::Arrange() {
    using namespace views;
    cboProcess.widthHint = 40;
    for (TextBox* box : {&txtRapid, &txtLineMarkRate}) box->widthHint = 10;
    for (TextBox* box :
         {&txtLeadInAngle, &txtLeadOutAngle, &txtLeadoutPercent, &txtLeadoutOverrun}) {
        box->widthHint = 6;
    }
    SetLayout(Column({
        Row({Label1, Grow(cboProcess)}),
        Framed(property, Row({Label2, Grow(txtRapid), Label7, Grow(txtLineMarkRate)})),
        Row({
            Grow(Framed(Frame3, Row({
                                    Column({optLeadIn[0], optLeadIn[1], optLeadIn[2]}),
                                    Column({Fields({Label3, txtLeadInAngle}), chkLeadInExtension}),
                                }))),
            Grow(Framed(Frame2,
                        Row({
                            Column({optLeadOut[0], optLeadOut[1], optLeadOut[2], optLeadOut[3]}),
                            Column({Fields({Label4, txtLeadOutAngle, Label5, txtLeadoutPercent,
                                            Label6, txtLeadoutOverrun}),
                                    chkLeadOutExtension}),
                        }))),
        }),
        Row({
            Grow(Framed(fraMajorDirection, Column({optMajorDirection[0], optMajorDirection[1]}))),
            Grow(Framed(fraMinorDirection, Column({optMinorDirection[0], optMinorDirection[1]}))),
            Grow(Framed(frmMinorKerf, Column({optOpenMinor[0], optOpenMinor[1], optOpenMinor[2]}))),
        }),
        chkAddKerf,
        Row({cmdAddProcess, cmdDeleteProcess, cmdThicknessData, Stretch(), cmdClose}),
    }));
}

void FrmProcessDefaults::BindOptions() {
    OnClick(optLeadIn, [this](ProcessRecord& record, std::size_t index) {
        record.Leadin = kLeadInCodes[index];
        txtLeadInAngle.SetEnabled(index == 0);
    });
    OnClick(optLeadOut, [this](ProcessRecord& record, std::size_t index) {
        record.Leadout = kLeadOutCodes[index];
        txtLeadOutAngle.SetEnabled(index == 0);
    });
    OnClick(optMajorDirection,
            [](ProcessRecord& record, std::size_t index) { record.MajorDir = kDirections[index]; });
    OnClick(optMinorDirection,
            [](ProcessRecord& record, std::size_t index) { record.MinorDir = kDirections[index]; });
    OnClick(optOpenMinor, [](ProcessRecord& record, std::size_t index) {
        record.MinorOpenKerf = kKerfSides[index];
    });
}

void FrmProcessDefaults::BindBox(
    views::TextBox& box, std::function<std::string(ProcessRecord& record, double value)> keep) {
    box.onGotFocus = [&box] { box.SelectAll(); };
    // Leaving the box counts as an edit even where nothing was typed.
    box.onLostFocus = [&box, keep = std::move(keep)] {
        Edit([&](ProcessRecord& record) { box.SetText(keep(record, text::Val(box.Text()))); });
    };
}

void FrmProcessDefaults::BindRate(views::TextBox& box, float ProcessRecord::* field) {
    BindBox(box, [field](ProcessRecord& record, double value) {
        record.*field = value < 0 ? 0 : text::ToSingle(value);
        return text::NumberText(record.*field);
    });
}

void FrmProcessDefaults::BindNumber(views::TextBox& box, std::int16_t ProcessRecord::* field,
                                    int (*limit)(int)) {
    BindBox(box, [field, limit](ProcessRecord& record, double value) {
        const int number = text::ToInteger16(value).value_or(0);
        record.*field = static_cast<std::int16_t>(limit(number));
        return text::NumberText(record.*field);
    });
}

void FrmProcessDefaults::BindCheck(views::CheckBox& box, std::int16_t ProcessRecord::* field) {
    box.onClick = [&box, field] {
        Edit([&](ProcessRecord& record) { record.*field = box.Value() ? 1 : 0; });
    };
}

void FrmProcessDefaults::Load() {
    const std::string title = "Error loading Process.dat";
    ProcessTable& table = TheProcesses();
    const auto before = std::make_unique<ProcessTable>(table);
    const auto currentBefore = Shared().CurrentProcess;
    table.ProcessCount = 0;
    Shared().CurrentProcess = 0;
    try {
        if (!ReadProcessFile()) {
            views::ShowWarning(
                "File PROCESS.DAT not found\rin " + app::TheConfig().UpperSystemDir() + "\\",
                title);
        }
    } catch (const errors::Error& failure) {
        // Half of a file must not be offered as the whole.
        table = *before;
        Shared().CurrentProcess = currentBefore;
        views::ShowWarning(failure.what(), title);
        return Close();
    }
    for (int n = 1; n <= table.ProcessCount; ++n) {
        cboProcess.AddItem(table.Process(n).Name.View());
    }
    if (table.ProcessCount > 0) {
        cboProcess.SetListIndex(0);
        Shared().CurrentProcess = 1;
    }
    Shared().ProcessChanged = false;
}

void FrmProcessDefaults::SelectProcess() {
    if (TheProcesses().ProcessCount <= 0) return;
    Shared().CurrentProcess = static_cast<std::int16_t>(cboProcess.ListIndex() + 1);
    SetCaption("Process Defaults " + std::string(text::Trim(cboProcess.Text())));
    const bool changed = Shared().ProcessChanged;  // to be shown is no edit
    FillProcessControls(Shared().CurrentProcess);
    Shared().ProcessChanged = changed;
}

void FrmProcessDefaults::FillProcessControls(int number) {
    const ProcessRecord& record = TheProcesses().Process(number);
    txtRapid.SetText(text::NumberText(record.Rapid));
    txtLineMarkRate.SetText(text::NumberText(record.LineMarkRate));

    txtLeadInAngle.SetText("");
    txtLeadInAngle.SetEnabled(false);
    ShowOption(optLeadIn, LeadOption(kLeadInCodes, record.Leadin));
    if (optLeadIn[0].Value()) txtLeadInAngle.SetText(text::NumberText(record.Angle));

    txtLeadOutAngle.SetText("");
    txtLeadOutAngle.SetEnabled(false);
    const int leadOut = LeadOption(kLeadOutCodes, record.Leadout);
    ShowOption(optLeadOut, leadOut < 0 ? 2 : leadOut);
    if (optLeadOut[0].Value()) txtLeadOutAngle.SetText(text::NumberText(record.Leadoutangle));

    txtLeadoutPercent.SetText(text::NumberText(record.LeadoutPercent));
    txtLeadoutOverrun.SetText(text::NumberText(record.LeadoutOverrun));
    ShowOption(optMajorDirection, ValueOption(kDirections, record.MajorDir));
    ShowOption(optMinorDirection, ValueOption(kDirections, record.MinorDir));
    ShowOption(optOpenMinor, ValueOption(kKerfSides, record.MinorOpenKerf));
    chkLeadInExtension.SetValue(record.Extension == 1);
    chkLeadOutExtension.SetValue(record.Leadoutextension == 1);
    chkAddKerf.SetValue(record.AddKerf == 1);
}

void FrmProcessDefaults::ThicknessDataClick() {
    if (TheProcesses().ProcessCount < 1) {
        return views::ShowWarning("There is no Process.", "Error : No Process");
    }
    FrmThicknessData window;
    views::ShowModal(window);
}

void FrmProcessDefaults::AddProcessClick() {
    if (TheProcesses().ProcessCount >= MaxProcesses) {
        views::ShowWarning("No More Space to Add\r          another Process.",
                           "Error in Adding Process");
        cmdAddProcess.SetEnabled(false);
        return;
    }
    FrmAddProcess dialog(*this);
    views::ShowModal(dialog);
    // The last one, which is the new one where one was added.
    cboProcess.SetListIndex(TheProcesses().ProcessCount - 1);
}

void FrmProcessDefaults::DeleteProcessClick() {
    if (cboProcess.Text().empty()) return;
    const std::string question = "             If you Delete this Process " + cboProcess.Text() +
                                 "\r                     then any components or"
                                 "\rnest that uses this process will become INVALID."
                                 "\r         Are you sure you want to continue ?";
    if (!views::AskYesNo(question, "Delete Process")) return;

    Shared().ProcessChanged = true;
    ProcessTable& table = TheProcesses();
    const int deleted = Shared().CurrentProcess;
    // The settings move down, the names stay where they are: the last name falls away.
    for (int i = deleted; i < table.ProcessCount; ++i) InitProcessRecord(i, i + 1);
    --table.ProcessCount;
    cboProcess.RemoveItem(deleted - 1);
    cmdAddProcess.SetEnabled(true);
    if (table.ProcessCount < 1) return ShowNoProcess();
    cboProcess.SetListIndex(0);
    Shared().CurrentProcess = 1;
}

void FrmProcessDefaults::ShowNoProcess() {
    // First of all, so that nothing below writes to the record of the deleted one.
    Shared().CurrentProcess = 0;
    for (views::TextBox* box : {&txtRapid, &txtLeadInAngle, &txtLeadOutAngle}) box->SetText("");
    for (std::size_t i : {0, 1}) {
        optLeadIn[i].SetValue(false);
        optLeadOut[i].SetValue(false);
        optMajorDirection[i].SetValue(false);
        optMinorDirection[i].SetValue(false);
    }
    for (views::CheckBox* box : {&chkLeadInExtension, &chkLeadOutExtension, &chkAddKerf}) {
        box->SetValue(false);
    }
    cmdDeleteProcess.SetEnabled(false);
    cmdThicknessData.SetEnabled(false);
}

void FrmProcessDefaults::CloseClick() {
    const std::string title = "Closing Process Defaults";
    if (Shared().ProcessChanged && views::AskYesNo("             Save Changes ?", title)) {
        try {
            WriteProcessFile();
        } catch (const errors::FileError& failure) {
            return views::ShowWarning(failure.what(), title);  // the edits stay here
        }
    }
    Close();
}

}  // namespace process
