#include "tests/support/script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <regex>

#include "app/sys_man.h"
#include "platform/date_forms.h"
#include "tests/support/script_text.h"
#include "text/code_page.h"
#include "text/strings.h"
#include "views/application.h"
#include "views/basic_controls.h"
#include "views/keys.h"
#include "views/lists.h"
#include "views/spoken_name.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using std::string;

int KeyNamed(const string& name) {
    using namespace views;
    static const std::map<string, int> kKeys = {
        {"Tab", kKeyTab},     {"Enter", kKeyEnter},        {"Esc", kKeyEscape},
        {"Space", kKeySpace}, {"Left", kKeyLeft},          {"Right", kKeyRight},
        {"Up", kKeyUp},       {"Down", kKeyDown},          {"Home", kKeyHome},
        {"End", kKeyEnd},     {"PageUp", kKeyPageUp},      {"PageDown", kKeyPageDown},
        {"F6", kKeyF6},       {"Backspace", kKeyBackspace}};
    const auto key = kKeys.find(name);
    return key != kKeys.end() ? key->second : name.size() == 1 ? name[0] : -1;
}

// What is selected stands in brackets where the focus is.
string Quoted(const views::TextPart& part, bool focus) {
    string text = part.Text();
    if (focus && part.SelLength() > 0) {
        text.insert(part.SelStart() + part.SelLength(), "]");
        text.insert(part.SelStart(), "[");
    }
    return " \"" + Visible(text) + "\"";
}

// What a window shows, each fact under a name, in the order of the window; a fact that is usual
// when a window opens is empty then.
std::vector<Fact> FactsOf(const views::Form& form, bool opening) {
    using namespace views;
    std::vector<Fact> facts{{"", "\"" + Visible(form.Caption()) + "\""}};
    if (opening) facts.push_back({"name", form.Name() + (form.resizable ? " resizable" : "")});
    for (const Control* control : form.Controls()) {
        const string& name = control->Name();
        const auto add = [&](Aspect aspect, const string& what, const string& value) {
            facts.push_back({what, value, control, aspect});
        };
        const auto kind = control->GetKind();
        if (opening && control->widthHint + control->heightHint > 0) {
            const string size =
                std::to_string(control->widthHint) + "x" + std::to_string(control->heightHint);
            add(Aspect::kShape, name + " size", name + " " + size);
        }
        if (kind == Control::Kind::kLabel || kind == Control::Kind::kFrame) continue;
        // What a screen reader says of a field is neither empty nor has marks of the screen.
        const bool captioned = dynamic_cast<const CaptionedControl*>(control) != nullptr;
        static const std::regex kSpoken("[A-Z%].*[^ :?]"), kNone("");
        const string spoken = SpokenName(*control);
        EXPECT_TRUE(std::regex_match(spoken, captioned ? kNone : kSpoken)) << name;
        if (opening && !captioned) add(Aspect::kShape, name + " says", "says " + spoken);
        const string usual = opening ? "" : name;
        const string enabled = control->Enabled() ? usual : "(" + name + ")";
        add(Aspect::kEnabled, name + " is", control->Visible() ? enabled : "no " + name);
        if (const auto* box = dynamic_cast<const CheckBox*>(control)) {
            add(Aspect::kValue, name, name + (box->Value() ? " on" : " off"));
        } else if (const auto* option = dynamic_cast<const OptionButton*>(control)) {
            const string& group = option->Group().buttons.front()->Name();
            if (option->Value()) add(Aspect::kValue, group, name + " on");
        } else if (const auto* drives = dynamic_cast<const DriveList*>(control)) {
            add(Aspect::kItems, name + " has", name + " {" + Join(drives->Items()) + "}");
            add(Aspect::kIndex, name, name + " \"" + drives->Drive() + "\"");
        } else if (const auto* grid = dynamic_cast<const Grid*>(control)) {
            for (int row = 0; row < grid->Rows(); ++row) {
                Strings texts;
                for (int column = 0; column < grid->Columns(); ++column) {
                    const string text = Visible(grid->Text(row, column));
                    texts.push_back(text.empty() ? "-" : text);
                }
                const string title = "row " + std::to_string(row);
                add(Aspect::kCells, title, title + ": " + Join(texts, " | "));
            }
            string sizes = std::to_string(grid->RowHeight(0)) + " twips high, wide";
            for (int column = 0; column < grid->Columns(); ++column) {
                sizes += " " + std::to_string(grid->ColumnWidth(column)) +
                         (grid->IsNumberColumn(column) ? "n" : "");
            }
            if (opening) add(Aspect::kShape, "sizes", sizes);
            const string cell = std::to_string(grid->Row()) + " " + std::to_string(grid->Column());
            add(Aspect::kCurrentCell, "cell", "at " + cell);
            const auto& block = grid->Selection();
            const bool row = block.firstColumn != block.lastColumn;
            const string marked = row ? "marked row " + std::to_string(block.firstRow) : "marked";
            const string unmarked = opening ? "" : "unmarked";
            add(Aspect::kHighlight, "marks", grid->Highlight() ? marked : unmarked);
        }
        const auto* list = dynamic_cast<const ListBox*>(control);
        const auto* text = dynamic_cast<const TextPart*>(control);
        const string items = list ? Visible(Join(list->Items())) : "";
        if (list) add(Aspect::kItems, name + " has", name + " {" + items + "}");
        if (text) add(Aspect::kText, name, name + Quoted(*text, control->HasFocus()));
        const string chosen = list ? Visible(list->SelectedText()) : "";
        if (list && !text) add(Aspect::kIndex, name, name + " \"" + chosen + "\"");
    }
    if (const Control* focus = form.Focus()) {
        facts.push_back({"focus", "focus " + focus->Name(), focus, Aspect::kFocus});
    }
    return facts;
}

}  // namespace

void Play(const TempDrives& drives, std::string_view script, Paper paper) {
    MakePlayer()()->Play(drives, script, paper);
}

void Player::Play(const TempDrives& drives, std::string_view script, Paper paper) {
    drives_ = &drives;
    for (const string& line : Split(script, '\n')) {
        if (line.empty()) continue;
        const auto arrow = line.find("->");
        const string changes(arrow == line.npos ? "" : text::Trim(line.substr(arrow + 2)));
        if (!lines_.empty() && lines_.back().deeds.ends_with(',')) {
            lines_.back().deeds += " " + string(text::Trim(line.substr(0, arrow)));
            lines_.back().changes = changes;
        } else if (arrow == 0 && !lines_.empty()) {
            lines_.back().changes += " " + changes;
        } else {
            lines_.push_back({string(text::Trim(line.substr(0, arrow))), changes});
        }
    }
    views::Printer* const printer = views::InstallPrinter(this);
    if (paper == Paper::kReal) views::InstallPrinter(printer);
    while (next_ < lines_.size() && !::testing::Test::HasFatalFailure()) RunProgram();
    views::InstallPrinter(printer);
    EXPECT_TRUE(answers_.empty() && deeds_.empty()) << "a question or a window was expected";
}

void Player::RunProgram() {
    FreshSystem();
    ReadLine();
    ChangesOnDrives();
    while (!deeds_.empty() && DoOutside(deeds_.front())) deeds_.pop_front();
    app::SysMan window;
    main_ = &window;
    views::Guard([&] { Start(window); });
    if (unchecked_) Check(nullptr);
    FreshSystem();
}

void Player::ReadLine() {
    for (const string& deed : Split(lines_[next_++].deeds, ',', '\'')) deeds_.push_back(deed);
    if (deeds_.front().empty()) deeds_.clear();
    unchecked_ = true;
}

void Player::Work(views::Form& form) {
    // A script may go on from the main window without a look at it.
    const bool passed = main_ == &form ? shown_.empty() && !deeds_.empty() : shown_.size() < 2;
    if (passed) ChangesIn(*main_);
    while (form.IsOpen()) {
        if (deeds_.empty()) {
            if (unchecked_) Check(&form);
            if (next_ == lines_.size() || ::testing::Test::HasFatalFailure()) {
                form.Dismiss();
                break;
            }
            ReadLine();
        }
        const string deed = deeds_.front();
        deeds_.pop_front();
        // A window that this opens goes on with the deeds behind it.
        Do(form, deed);
    }
    open_.erase(&form);
}

void Player::Do(views::Form& form, const string& deed) {
    const auto words = Split(deed, ' ', '\'');
    if (DoOutside(deed)) return;
    if (deed.starts_with('\'')) {
        for (char c : Meant(deed.substr(1, deed.size() - 2))) Type(form, c);
    } else if (deed == "close") {
        views::Guard([&] { form.RequestClose(); });
    } else if (words.size() == 1) {
        auto keys = Split(deed, '+');
        int shift = 0;
        for (const string& held : keys) {
            shift |= held == "Shift" ? views::kShift : held == "Ctrl" ? views::kCtrl : 0;
            shift |= held == "Alt" ? views::kAlt : 0;
        }
        const int key = KeyNamed(keys.back());
        ASSERT_GE(key, 0) << "there is no deed " << deed;
        Press(form, key, shift);
    } else {
        DoInWindow(form, words[0], words[1], {words.begin() + 2, words.end()});
    }
}

bool Player::DoOutside(const string& deed) {
    static const std::map<string, views::Answer> kAnswers = {{"yes", views::Answer::kYes},
                                                             {"no", views::Answer::kNo},
                                                             {"ok", views::Answer::kOk},
                                                             {"cancel", views::Answer::kCancel}};
    static const std::regex kDeed("(write|remove|protect) +(.+?)(?: '(.*)')?");
    std::smatch parts;
    if (const auto answer = kAnswers.find(deed); answer != kAnswers.end()) {
        answers_.push_back(answer->second);
        return true;
    }
    if (!std::regex_match(deed, parts, kDeed)) return false;
    const string path = parts[2];
    if (parts[1] == "write") drives_->Write(path, Meant(parts[3].str()));
    if (parts[1] == "protect") drives_->SetReadOnly(path, true);
    if (parts[1] == "remove") {
        // Windows deletes no file that is read-only.
        if (fs::is_regular_file(drives_->Path(path))) drives_->SetReadOnly(path, false);
        fs::remove_all(drives_->Path(path));
    }
    ChangesOnDrives();
    return true;
}

void Player::DoInWindow(views::Form& form, const string& verb, const string& name, Strings words) {
    views::Control* control = nullptr;
    views::Grid* grid = nullptr;
    for (views::Control* each : form.Controls()) {
        if (each->Name() == name) control = each;
        if (auto* found = dynamic_cast<views::Grid*>(each)) grid = found;
    }
    if (words.size() == 1 && grid != nullptr && control == nullptr) {
        return ClickCell(*grid, std::stoi(name), std::stoi(words[0]), verb == "double");
    }
    ASSERT_NE(control, nullptr) << form.Name() << " has no " << name;
    const string text = Join(words, " ");
    const auto choose = [&](auto& list) {
        const auto& items = list.Items();
        const auto item = std::find(items.begin(), items.end(), text);
        ASSERT_NE(item, items.end()) << name << " has no entry " << text;
        list.Choose(static_cast<int>(item - items.begin()));
    };
    if (verb == "click") return Click(*control);
    if (verb == "paste") return Paste(*control, Meant(text.substr(1, text.size() - 2)));
    views::Guard([&] {
        if (verb == "focus") return control->SetFocus();
        if (auto* drives = dynamic_cast<views::DriveList*>(control)) return choose(*drives);
        if (auto* list = dynamic_cast<views::ListBox*>(control)) return choose(*list);
        FAIL() << "there is no deed " << verb << " for " << name;
    });
}

void Player::Check(const views::Form* form) {
    unchecked_ = false;
    const Line& line = lines_[next_ - 1];
    const string differences = form != nullptr ? Differences(*form) : "";
    EXPECT_EQ(differences, "") << "in the line: " << line.deeds;
    Strings changes{form != nullptr ? ChangesIn(*form) : "", Join(std::exchange(said_, {})),
                    ChangesOnDrives()};
    if (form == nullptr) changes.push_back("ended " + std::to_string(views::ExitStatus()));
    if (line.changes == "...") return;
    const string really = Join(changes);
    EXPECT_TRUE(Unbroken(really) == Unbroken(line.changes))
        << "after:     " << line.deeds << "\nexpected:  " << line.changes
        << "\nreally:    " << really;
}

string Player::ChangesIn(const views::Form& form) {
    const auto [last, first] = shown_.try_emplace(form.Name());
    // What is usual at the opening is no change afterwards.
    auto before = std::exchange(last->second, FactsOf(form, false));
    const auto& now = last->second;
    const bool opens = open_.insert(&form).second;
    // A window that opens again says so by its caption.
    if (opens && !first) before.front() = {};
    Strings changes;
    int rows = 0;  // of those that have changed the first and the last are shown
    const auto add = [&](const Fact& fact, const string& change) {
        rows = fact.aspect == views::Aspect::kCells ? rows + 1 : 0;
        if (rows > 5) changes.pop_back();
        changes.push_back(rows > 4 ? ".. " + change : change);
    };
    for (const auto& fact : first ? FactsOf(form, true) : now) {
        if (std::find(before.begin(), before.end(), fact) != before.end()) continue;
        add(fact, fact.value);
        const bool told = opens || fact.control == nullptr || Told(*fact.control, fact.aspect);
        EXPECT_TRUE(told) << "nobody tells the real window of " << fact.value;
    }
    for (const auto& fact : before) {
        const auto same = [&](const Fact& other) { return other.name == fact.name; };
        if (std::none_of(now.begin(), now.end(), same)) add(fact, "gone " + fact.value);
    }
    Forget(form);
    return Join(changes);
}

views::Answer Player::Answer(const views::Message& message) {
    static const char* const kButtons[] = {"", " OK/Cancel", " Yes/No"};
    static const char* const kIcons[] = {" none", "", " question", " information", " critical"};
    string text = Visible(message.text);
    const string folder = drives_->Folder().string();
    if (const auto at = text.find(folder); at != text.npos)
        text.replace(at, folder.size(), "<drives>");
    const string title =
        message.title == "Quarvel System Manager" ? "" : " \"" + message.title + "\"";
    string said = "box" + string(kButtons[static_cast<int>(message.buttons)]) +
                  kIcons[static_cast<int>(message.icon)] + title + " \"" + text + "\"";
    // Of a box much like an earlier one only the other part need be read.
    for (const string& seen : boxes_[title]) {
        const auto [left, from] = std::mismatch(text.begin(), text.end(), seen.begin(), seen.end());
        const auto right = std::mismatch(text.rbegin(), std::make_reverse_iterator(left),
                                         seen.rbegin(), std::make_reverse_iterator(from))
                               .first.base();
        const string other = left == right ? "" : " .." + string(left, right) + "..";
        const string again = "box again" + title + other;
        if (again.size() < said.size() / 2 + title.size()) said = again;
    }
    boxes_[title].push_back(text);
    said_.push_back(said);
    if (message.buttons == views::Buttons::kOk) return views::Answer::kOk;
    if (answers_.empty()) {
        ADD_FAILURE() << "nobody answers " << said_.back();
        return message.buttons == views::Buttons::kYesNo ? views::Answer::kNo
                                                         : views::Answer::kCancel;
    }
    const auto answer = answers_.front();
    answers_.pop_front();
    return answer;
}

// Of this day and of files that were written in it.
void Player::Send(const std::vector<Page>& pages) {
    const std::time_t now = std::time(nullptr);
    const string today = platform::DateForms().ShortDate(*std::localtime(&now));
    for (const Page& page : pages) {
        string paper = "paper:";
        for (string line : page) {
            if (const auto date = line.find(today); date != line.npos)
                line.replace(date, line.size(), "<today>");
            paper += line.empty() ? "/" : " " + Visible(line) + " /";
        }
        said_.push_back(paper);
    }
}

string Player::ChangesOnDrives() {
    std::map<string, string> now;
    for (const auto& entry : fs::recursive_directory_iterator(drives_->Folder())) {
        const auto utf8 = entry.path().lexically_relative(drives_->Folder()).generic_u8string();
        const string name(utf8.begin(), utf8.end());
        string path = text::FromUtf8(name).value_or(name);
        path.insert(1, ":");
        std::replace(path.begin(), path.end(), '/', '\\');
        now[path] = entry.is_directory() ? "\\" : drives_->Read(path);
    }
    Strings changes;
    for (const auto& [path, bytes] : files_) {
        // What was in a directory goes with it.
        if (now.contains(path) || !now.contains(path.substr(0, path.rfind('\\')))) continue;
        changes.push_back(Visible(path) + " gone");
    }
    string made = "?";  // the last directory, without which what is in it is named
    for (const auto& [path, bytes] : now) {
        const auto before = files_.find(path);
        if (before != files_.end() && before->second == bytes) continue;
        const string lines = bytes == "\\"
                                 ? "made"
                                 : LineChanges(before == files_.end() ? "" : before->second, bytes);
        const bool inside = path.starts_with(made + "\\");
        changes.push_back(Visible(path.substr(inside ? made.size() : 0)) + " " + lines);
        if (!inside && bytes == "\\") made = path;
    }
    files_ = std::move(now);
    return Join(changes);
}

}  // namespace test
