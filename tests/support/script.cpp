#include "tests/support/script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <memory>

#include "app/sys_man.h"
#include "platform/date_forms.h"
#include "tests/support/fresh_system.h"
#include "text/code_page.h"
#include "text/strings.h"
#include "views/application.h"
#include "views/basic_controls.h"
#include "views/keys.h"
#include "views/lists.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using std::string;

std::vector<string> Split(std::string_view text, char divider, char quote = '\0') {
    std::vector<string> parts{""};
    bool quoted = false;
    for (char c : text) {
        if (c == quote) quoted = !quoted;
        if (c == divider && !quoted) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    for (string& part : parts) part = string(text::Trim(part));
    return parts;
}

string Join(const std::vector<string>& parts, const string& between = "; ") {
    string joined;
    for (const string& part : parts) {
        if (!part.empty()) joined += (joined.empty() ? "" : between) + part;
    }
    return joined;
}

// However it is broken into lines.
string Unbroken(string text) {
    for (auto at = text.find("; "); at != text.npos; at = text.find("; ", at)) text.erase(at, 1);
    return string(text::Trim(text));
}

// What cannot be seen, and long runs of blanks.
string Visible(std::string_view text) {
    string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto blanks = std::min(text.find_first_not_of(' ', i), text.size()) - i;
        if (blanks >= 4) {
            shown += "<" + std::to_string(blanks) + ">";
            i += blanks - 1;
            continue;
        }
        const auto code = static_cast<unsigned char>(text[i]);
        constexpr const char* kDigits = "0123456789ABCDEF";
        if (code == '\r' || code == '\n' || code == '\0') {
            shown += code == '\r' ? "\\r" : code == '\n' ? "\\n" : "\\0";
        } else if (code < 32 || code > 126) {
            shown += string("\\x") + kDigits[code / 16] + kDigits[code % 16];
        } else {
            shown += text[i];
        }
    }
    return shown;
}

string Meant(std::string_view text) {
    string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '{') {
            const auto dash = text.find('-', i), colon = text.find(':', i), end = text.find('}', i);
            const int last = std::stoi(string(text.substr(dash + 1)));
            for (int n = std::stoi(string(text.substr(i + 1))); n <= last; ++n) {
                for (char c : Meant(text.substr(colon + 1, end - colon - 1))) {
                    bytes += c == '#' ? std::to_string(n) : string(1, c);
                }
            }
            i = end;
            continue;
        }
        const bool escaped = text[i] == '\\' && i + 1 < text.size();
        const char next = escaped ? text[i + 1] : '\0';
        if (next == 'r' || next == 'n' || next == '0') {
            bytes += next == 'r' ? '\r' : next == 'n' ? '\n' : '\0';
            ++i;
        } else if (next == 'x') {
            bytes += static_cast<char>(std::stoi(string(text.substr(i + 2, 2)), nullptr, 16));
            i += 3;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

int KeyNamed(const string& name) {
    static constexpr std::pair<std::string_view, int> kKeys[] = {
        {"Tab", views::kKeyTab},       {"Enter", views::kKeyEnter},
        {"Esc", views::kKeyEscape},    {"Space", views::kKeySpace},
        {"Left", views::kKeyLeft},     {"Right", views::kKeyRight},
        {"Up", views::kKeyUp},         {"Down", views::kKeyDown},
        {"Home", views::kKeyHome},     {"End", views::kKeyEnd},
        {"PageUp", views::kKeyPageUp}, {"PageDown", views::kKeyPageDown},
        {"F6", views::kKeyF6},         {"Backspace", views::kKeyBackspace},
    };
    for (const auto& [key, code] : kKeys) {
        if (key == name) return code;
    }
    return name.size() == 1 ? name[0] : -1;
}

string Quoted(const views::TextPart& part, bool focus) {
    const string text = Visible(part.Text());
    const bool all = focus && part.SelLength() > 0 && part.SelLength() == part.Text().size();
    return all ? "\"[" + text + "]\"" : "\"" + text + "\"";
}

// What a window shows, each fact under a name, in the order of the window; a fact that is usual
// when a window opens is empty then.
std::vector<std::pair<string, string>> FactsOf(const views::Form& form, bool opening) {
    std::vector<std::pair<string, string>> facts{{"", "\"" + Visible(form.Caption()) + "\""}};
    for (const views::Control* control : form.Controls()) {
        using Kind = views::Control::Kind;
        const string& name = control->Name();
        const auto add = [&](const string& what, const string& value) {
            facts.emplace_back(name + what, value);
        };
        const auto kind = control->GetKind();
        if (kind == Kind::kLabel || kind == Kind::kFrame) continue;
        add(" is", !control->Visible()   ? "no " + name
                   : !control->Enabled() ? "(" + name + ")"
                   : opening             ? ""
                                         : name);
        if (kind == Kind::kCheckBox) {
            add("",
                name + (static_cast<const views::CheckBox*>(control)->Value() ? " on" : " off"));
        } else if (kind == Kind::kOption) {
            const auto* option = static_cast<const views::OptionButton*>(control);
            if (option->Value()) {
                facts.emplace_back(option->Group().buttons.front()->Name(), name + " on");
            }
        } else if (kind == Kind::kTextBox) {
            const auto* box = static_cast<const views::TextBox*>(control);
            add("", name + " " + Quoted(*box, box->HasFocus()));
        } else if (kind == Kind::kDriveList) {
            add("", name + " \"" + static_cast<const views::DriveList*>(control)->Drive() + "\"");
        } else if (const auto* list = dynamic_cast<const views::ListBox*>(control)) {
            add(" has", name + " {" + Visible(Join(list->Items())) + "}");
            const auto* combo = dynamic_cast<const views::ComboBox*>(control);
            add("", name + " " +
                        (combo ? Quoted(*combo, combo->HasFocus())
                               : "\"" + Visible(list->SelectedText()) + "\""));
        } else if (const auto* grid = dynamic_cast<const views::Grid*>(control)) {
            for (int row = 0; row < grid->Rows(); ++row) {
                std::vector<string> texts;
                for (int column = 0; column < grid->Columns(); ++column) {
                    texts.push_back(Visible(grid->Text(row, column)));
                    if (texts.back().empty()) texts.back() = "-";
                }
                add(" row " + std::to_string(row),
                    "row " + std::to_string(row) + ": " + Join(texts, " | "));
            }
            add(" at", "at " + std::to_string(grid->Row()) + " " + std::to_string(grid->Column()));
            const auto& block = grid->Selection();
            const bool one =
                block.firstRow == block.lastRow && block.firstColumn == block.lastColumn;
            add(" marks", !grid->Highlight() ? (opening ? "" : "unmarked")
                          : one              ? "marked"
                                             : "marked row " + std::to_string(block.firstRow));
        }
    }
    if (form.Focus() != nullptr) facts.emplace_back(" focus", "focus " + form.Focus()->Name());
    return facts;
}

std::vector<string> LinesOf(const string& bytes) {
    std::vector<string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = std::min(bytes.find('\n', at), bytes.size());
        const string line = bytes.substr(at, end - at);
        const bool usual = end < bytes.size() && line.ends_with('\r');
        const char* const otherEnd = usual ? "" : end < bytes.size() ? "\\n" : "<no end>";
        lines.push_back(Visible(line.substr(0, line.size() - usual)) + otherEnd);
        at = end + 1;
    }
    return lines;
}

// The lines that went and came between equal ones at both ends.
string LineChanges(const string& before, const string& after) {
    auto old = LinesOf(before), now = LinesOf(after);
    const auto left = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
    old.erase(old.begin(), left.first);
    now.erase(now.begin(), left.second);
    while (!old.empty() && !now.empty() && old.back() == now.back()) {
        old.pop_back();
        now.pop_back();
    }
    std::vector<string> changes;
    for (const string& line : old) changes.push_back("-" + line);
    for (const string& line : now) changes.push_back("+" + line);
    return Join(changes);
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
    FreshSystem();
    // The first line is about the main window as it opens, and what was done before.
    const string& first = lines_.front().deeds;
    if (!first.empty() && !first.starts_with("write ") && !first.starts_with("remove ")) {
        lines_.insert(lines_.begin(), {"", "..."});
    }
    for (const string& deed : Split(lines_[next_++].deeds, ',', '\'')) DoOnDisk(deed);
    unchecked_ = true;
    ChangesOnDrives();
    app::SysMan window;
    views::Printer* const printer = views::InstallPrinter(this);
    if (paper == Paper::kReal) views::InstallPrinter(printer);
    views::Guard([&] { Start(window); });
    views::InstallPrinter(printer);
    if (unchecked_) Check(nullptr);
    EXPECT_EQ(next_, lines_.size())
        << "no window is open for: " << lines_[std::min(next_, lines_.size() - 1)].deeds;
    EXPECT_TRUE(answers_.empty() && deeds_.empty()) << "a question or a window was expected";
    FreshSystem();
}

void Player::Work(views::Form& form) {
    while (form.IsOpen()) {
        if (deeds_.empty()) {
            if (unchecked_) Check(&form);
            if (next_ == lines_.size() || ::testing::Test::HasFatalFailure()) {
                form.Dismiss();
                break;
            }
            for (const string& deed : Split(lines_[next_++].deeds, ',', '\''))
                deeds_.push_back(deed);
            unchecked_ = true;
        }
        const string deed = deeds_.front();
        deeds_.pop_front();
        // A window that this opens goes on with the deeds behind it.
        Do(form, deed);
    }
    shown_.erase(&form);
}

void Player::Do(views::Form& form, const string& deed) {
    auto words = Split(deed, ' ', '\'');
    std::erase(words, "");
    const string verb = words.empty() ? "" : words[0];
    static const std::map<string, views::Answer> kAnswers = {{"yes", views::Answer::kYes},
                                                             {"no", views::Answer::kNo},
                                                             {"ok", views::Answer::kOk},
                                                             {"cancel", views::Answer::kCancel}};
    if (const auto answer = kAnswers.find(verb); answer != kAnswers.end()) {
        answers_.push_back(answer->second);
    } else if (DoOnDisk(deed)) {
        ChangesOnDrives();
    } else if (verb.starts_with('\'')) {
        for (char c : Meant(deed.substr(1, deed.size() - 2))) Type(form, c);
    } else if (words.size() == 1 && verb != "close") {
        int shift = 0;
        auto parts = Split(verb, '+');
        for (const string& held : parts) {
            shift |= held == "Shift" ? views::kShift : held == "Ctrl" ? views::kCtrl : 0;
            shift |= held == "Alt" ? views::kAlt : 0;
        }
        const int key = KeyNamed(parts.back());
        ASSERT_GE(key, 0) << "there is no deed " << deed;
        Press(form, key, shift);
    } else {
        words.erase(words.begin());
        DoInWindow(form, verb, words);
    }
}

bool Player::DoOnDisk(const string& deed) {
    const auto blank = std::min(deed.find(' '), deed.size()),
               end = std::min(deed.find(" '"), deed.size());
    const string verb = deed.substr(0, blank), path = deed.substr(blank).substr(0, end - blank);
    const string at(text::Trim(path));
    if (verb == "write") drives_->Write(at, Meant(deed.substr(end + 2, deed.size() - end - 3)));
    if (verb == "remove") {
        // Windows deletes no file that is read-only.
        if (fs::is_regular_file(drives_->Path(at))) drives_->SetReadOnly(at, false);
        fs::remove_all(drives_->Path(at));
    }
    if (verb == "protect") drives_->SetReadOnly(at, true);
    return verb == "write" || verb == "remove" || verb == "protect";
}

void Player::DoInWindow(views::Form& form, const string& verb, std::vector<string> words) {
    if (verb == "close") return views::Guard([&] { form.RequestClose(); });
    views::Control* control = nullptr;
    views::Grid* grid = nullptr;
    for (views::Control* each : form.Controls()) {
        if (!words.empty() && each->Name() == words[0]) control = each;
        if (auto* found = dynamic_cast<views::Grid*>(each)) grid = found;
    }
    if (words.size() == 2 && grid != nullptr && control == nullptr) {
        return ClickCell(*grid, std::stoi(words[0]), std::stoi(words[1]), verb == "double");
    }
    ASSERT_NE(control, nullptr) << form.Name() << " has no " << (words.empty() ? verb : words[0]);
    if (verb == "click") return Click(*control);
    words.erase(words.begin());
    const string text = Join(words, " ");
    if (verb == "paste") return Paste(*control, Meant(text.substr(1, text.size() - 2)));
    views::Guard([&] {
        if (verb == "focus") {
            control->SetFocus();
        } else if (auto* drives = dynamic_cast<views::DriveList*>(control)) {
            const auto& items = drives->Items();
            drives->Choose(
                static_cast<int>(std::find(items.begin(), items.end(), text) - items.begin()));
        } else {
            auto& list = dynamic_cast<views::ListBox&>(*control);
            const auto& items = list.Items();
            list.Choose(
                static_cast<int>(std::find(items.begin(), items.end(), text) - items.begin()));
        }
    });
}

void Player::Check(const views::Form* form) {
    unchecked_ = false;
    const Line& line = lines_[next_ - 1];
    const string differences = form != nullptr ? Differences(*form) : "";
    EXPECT_EQ(differences, "") << "in the line: " << line.deeds;
    std::vector<string> changes{form != nullptr ? ChangesIn(*form) : "",
                                Join(std::exchange(said_, {})), ChangesOnDrives()};
    if (form == nullptr) changes.push_back("ended " + std::to_string(views::ExitStatus()));
    if (line.changes == "...") return;
    const string really = Join(changes);
    EXPECT_TRUE(Unbroken(really) == Unbroken(line.changes))
        << "after:     " << line.deeds << "\nexpected:  " << line.changes
        << "\nreally:    " << really;
}

string Player::ChangesIn(const views::Form& form) {
    const bool opening = !shown_.contains(&form);
    const Facts before = opening ? Facts{} : shown_[&form];
    // What is usual at the opening is no change afterwards.
    const Facts now = FactsOf(form, false);
    shown_[&form] = now;
    std::vector<string> changes;
    int rows = 0;  // of those that have changed the first and the last are shown
    for (const auto& fact : opening ? FactsOf(form, true) : now) {
        if (std::find(before.begin(), before.end(), fact) != before.end()) continue;
        rows = fact.first.find(" row ") == fact.first.npos ? 0 : rows + 1;
        if (rows > 5) changes.pop_back();
        changes.push_back(rows > 4 ? ".. " + fact.second : fact.second);
    }
    for (const auto& [name, value] : before) {
        const auto same = [&name = name](const auto& fact) { return fact.first == name; };
        if (std::none_of(now.begin(), now.end(), same)) changes.push_back("gone " + value);
    }
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
    const string box = "box" + string(kButtons[static_cast<int>(message.buttons)]) +
                       kIcons[static_cast<int>(message.icon)] + title + " \"" + text + "\"";
    // What was said before in this script need not be read again.
    said_.push_back(boxes_.insert(box).second ? box : "box again" + title);
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
        std::vector<string> lines;
        for (string line : page) {
            const auto date = line.find(today);
            if (date != line.npos) line.replace(date, line.size(), "<today>");
            lines.push_back(Visible(line));
        }
        said_.push_back("paper: " + Join(lines, " / "));
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
    std::vector<string> changes;
    for (const auto& [path, bytes] : files_) {
        // What was in a directory goes with it.
        if (now.contains(path) || !now.contains(path.substr(0, path.rfind('\\')))) continue;
        changes.push_back(Visible(path) + " gone");
    }
    for (const auto& [path, bytes] : now) {
        const auto before = files_.find(path);
        if (before != files_.end() && before->second == bytes) continue;
        const string lines = bytes == "\\"
                                 ? "made"
                                 : LineChanges(before == files_.end() ? "" : before->second, bytes);
        changes.push_back(Visible(path) + " " + lines);
    }
    files_ = std::move(now);
    return Join(changes);
}

}  // namespace test
