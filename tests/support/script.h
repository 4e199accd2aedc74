// Plays what an operator does, from the start of the program on, and compares everything that
// changes with what is written down. A line of a script is
//
//     deeds  ->  what has changed: in the window on top, on the drives, and what was said
//
// and may go on in lines that begin with "->". "-> ..." takes whatever comes.
//
// Deeds, with commas between them:
//     Tab  Shift+Tab  Ctrl+Down  Enter  Esc  Alt+C       keys, by their names
//     'text'                                             is typed
//     click cmdAdd                                       a button, check box or option
//     click 2 3   double 2 0                             a cell of the grid; 0 are its headings
//     choose lstDirectory p10                            an entry of a list, or of the drives
//     focus txtRapid   paste txtEditData '1'             by another way than a key
//     close                                              by the frame of the window
//     yes  no  ok  cancel                                how the next question is answered
//     write c:\a.txt 'x'   remove c:\a   protect c:\a    another program does it
//
// Answers and deeds of another program at the beginning of the first line come before the start.
//
// In quotes \r \n \0 \xE9 stand for what cannot be seen, and {1-60:M#} for M1M2M3 and so on.
//
// The line behind one that has ended the program starts it again.
//
// What has changed, since the window was last shown: "caption" with name and sizes (in characters,
// of a grid in twips, n for numbers) and what a screen reader says of fields without a caption;
// focus NAME; cmdAdd or (cmdAdd) for enabled or not; no NAME for what is hidden; [..] for a text
// that is selected; {a; b} for the entries of a list; of a grid its rows, the current cell and
// which ones are marked; beep and box for what was said; and of each file the lines that went (-)
// and came (+), an end of line shown only where it is not CR LF.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temp_drives.h"
#include "views/form.h"
#include "views/grid.h"
#include "views/printer.h"
#include "views/screen.h"

namespace test {

enum class Paper { kKept, kReal };

// Starts the program and plays the script in it. What is printed is kept and compared, or goes to
// the real printer.
void Play(const TempDrives& drives, std::string_view script, Paper paper = Paper::kKept);

// Something that a window shows; under its name it is compared with what was shown before.
struct Fact {
    std::string name, value;
    const views::Control* control = nullptr;
    views::Aspect aspect = {};
    bool operator==(const Fact& other) const { return name == other.name && value == other.value; }
};

// Who plays it: core_tests by events of the plain controls, gui_tests by a real keyboard and mouse.
class Player : private views::Printer {
  public:
    void Play(const TempDrives& drives, std::string_view script, Paper paper = Paper::kKept);

  protected:
    virtual void Start(views::Form& form) = 0;
    virtual void Press(views::Form& form, int key, int shift) = 0;
    virtual void Type(views::Form& form, char character) = 0;
    virtual void Click(views::Control& control) = 0;
    virtual void Paste(views::Control& control, const std::string& text) = 0;
    virtual void ClickCell(views::Grid& grid, int row, int column, bool twice) = 0;
    // How a real window differs from its plain one when everything has come to rest.
    virtual std::string Differences(const views::Form&) { return {}; }
    // Whether the real control was told of a change since the last comparison.
    virtual bool Told(const views::Control&, views::Aspect) { return true; }
    virtual void Forget(const views::Form&) {}

    // Goes on with the script in the window on top until it closes.
    void Work(views::Form& form);
    void Beep() { said_.push_back("beep"); }
    // What is said in a box, and its answer.
    views::Answer Answer(const views::Message& message);

  private:
    struct Line {
        std::string deeds, changes;
    };

    void RunProgram();
    void ReadLine();
    void Do(views::Form& form, const std::string& deed);
    bool DoOutside(const std::string& deed);
    void Send(const std::vector<Page>& pages) override;
    void ShowSetup() override { said_.push_back("printer set-up"); }
    void DoInWindow(views::Form& form, const std::string& verb, const std::string& name,
                    std::vector<std::string> words);
    void Check(const views::Form* form);
    std::string ChangesIn(const views::Form& form);
    std::string ChangesOnDrives();

    const TempDrives* drives_ = nullptr;
    const views::Form* main_ = nullptr;
    std::vector<Line> lines_;
    std::size_t next_ = 0;
    std::deque<std::string> deeds_;  // of the line before `next_`, still to be done
    bool unchecked_ = false;         // what the line before `next_` has changed
    std::map<std::string, std::vector<Fact>> shown_;  // last, by the name of the window
    std::set<const views::Form*> open_;
    std::map<std::string, std::string> files_;
    std::vector<std::string> said_;
    std::map<std::string, std::vector<std::string>> boxes_;  // their texts by title
    std::deque<views::Answer> answers_;
};

// Makes the player of this program.
inline std::function<std::unique_ptr<Player>()>& MakePlayer() {
    static std::function<std::unique_ptr<Player>()> make;
    return make;
}

}  // namespace test
