// Printing for real: on the printers of tools/with-print-server where there are any, and without.
#include <gtest/gtest.h>

#ifdef _WIN32
#include <wx/cmndata.h>
#else
#include <wx/utils.h>

#include <gio/gunixsocketaddress.h>
#include <gtk/gtk.h>
#endif

#include <regex>

#include "tests/gui/real_player.h"
#include "tests/support/environment.h"
#include "tests/support/workshop.h"
#include "text/code_page.h"
#include "views/wx/wx_printer.h"

#ifndef _WIN32
// In a header that the toolkit lets nobody find.
extern "C" void gtk_page_setup_unix_dialog_set_page_setup(GtkWidget*, GtkPageSetup*);
#endif

namespace {

using std::string;

// The real printer, which also keeps what it is told.
class Printer : public views::wx::WxPrinter {
  public:
    ~Printer() override { views::InstallPrinter(before_); }
    std::vector<Page> pages;

  private:
    void Send(const std::vector<Page>& told) override { WxPrinter::Send(pages = told); }
    views::Printer* const before_ = views::InstallPrinter(this);
};

// The run ends with the reason.
void ExpectRefused(const string& reason) {
    const Printer printer;
    string script = R"(
choose lstDirectory plates, click cmdPrint, click cmdOK -> box critical "REASON"
  -> c:\tolvarin\network\user1\nestuser.ini +[SystemManager]; +CurrentSysManDrive=c: ended 1
)";
    script.replace(script.find("REASON"), 6, reason);
    test::RealPlayer().Play(test::Workshop(), script, test::Paper::kReal);
}

#ifdef _WIN32

TEST(Printing, WithoutAPrinterTheReasonIsSaid) {
    if (wxPrintData().IsOk()) GTEST_SKIP() << "there is a printer";
    ExpectRefused("There is no printer.");
}

#else

// A server that takes the call and says nothing is not waited for.
TEST(Printing, WithoutAPrinterTheReasonIsSaid) {
    const test::TempDrives drives;
    const string path = drives.Folder() / "socket";
    const test::Environment server("CUPS_SERVER", path);
    ExpectRefused("There is no printer: no print server answers at " + path + ".");
    GSocketListener* const listener = g_socket_listener_new();
    ASSERT_TRUE(g_socket_listener_add_address(listener, g_unix_socket_address_new(path.c_str()),
                                              G_SOCKET_TYPE_STREAM, G_SOCKET_PROTOCOL_DEFAULT,
                                              nullptr, nullptr, nullptr));
    ExpectRefused("There is no printer: the print server does not answer.");
    g_object_unref(listener);
}

// What a command says where the printed documents lie, once there is one.
string Paper(const string& command) {
    wxArrayString said, errors;
    const string all = "sh -c 'cd $SYSMAN_TEST_PRINTED && " + command + "'";
    test::Until([&] { return wxExecute(all, said, errors, wxEXEC_NODISABLE) == 0; });
    return wxJoin(said, '\n', '\0').utf8_string();
}

// In the platform's set-up, which opens when the button is pressed, the operator takes US Letter.
gboolean ChooseLetter(void*) {
    GtkWidget* const dialog = gtk_grab_get_current();
    if (!dialog || G_OBJECT_TYPE_NAME(dialog) != string("GtkPageSetupUnixDialog")) return TRUE;
    GtkPageSetup* const letter = gtk_page_setup_new();
    gtk_page_setup_set_paper_size(letter, gtk_paper_size_new("na_letter"));
    gtk_page_setup_unix_dialog_set_page_setup(dialog, letter);
    gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
    return FALSE;
}

// Every directory begins a sheet, and one that is full goes on on a sheet more. What is set up
// holds for the rest of the run.
TEST(Printing, SheetsAndColumnsOnThePaperThatIsSetUp) {
    if (!std::getenv("SYSMAN_TEST_PRINTED")) GTEST_SKIP() << "not under tools/with-print-server";
    const test::Workshop workshop;
    const string job = "c:\\tolvarin\\USER\\PROD\\P10\\TAPE\\";
    for (int i = 100; i < 170; ++i) workshop.Write(job + "A" + std::to_string(i) + ".TAP", "12345");
    workshop.Write(job + string(60, 'b') + ".tap", string(1234, 'x'));
    workshop.Write(job + "c \xC4\xD6\xDC.tap", "");  // capital umlauts
    workshop.MakeDir("c:\\tolvarin\\USER\\PROD\\P20\\TAPE");
    const Printer printer;
    const auto expectAll = [&](views::Form&) {
        string told;
        for (const auto& page : printer.pages) {
            for (const string& line : page) told += text::ToUtf8(line) + "\n";
        }
        // Blanks at the end of a line and lines without anything are not seen.
        told = std::regex_replace(told, std::regex("[ \n]*\n"), "\n");
        EXPECT_EQ(Paper("pdfinfo PDF.pdf | grep Pages"), "Pages:           3");
        EXPECT_EQ(Paper("pdftotext -fixed 6 PDF.pdf - | sed -nE \"s/^[[:cntrl:]]? {7}//p\"") + "\n",
                  told);
    };
    const auto expect = [](const char* paper) {
        return [paper](views::Form&) {
            EXPECT_EQ(Paper("pdfinfo PDF.pdf | grep -oE \"A4|letter\" && rm PDF.pdf"), paper);
        };
    };
    const auto setUp = [](views::Form&) { g_timeout_add(100, ChooseLetter, nullptr); };
    test::RealPlayer player;
    player.own = {expectAll, expect("A4"), setUp, expect("letter"), expect("letter")};
    player.Play(workshop, R"(
click optProduction, choose lstDirectory p10, click cmdPrint -> ...
click chkComp, click chkNest, click cmdOK, '**' -> ...
click cmdPrint, '*', click cmdSetup, click cmdOK, '*' -> ...
click cmdPrint, click cmdOK, '*' -> ...
)",
                test::Paper::kReal);
}

#endif

}  // namespace
