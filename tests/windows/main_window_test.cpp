// The main window with its dialogs: start-up, the list of directories, making, deleting, printing
// and backing them up, and the drive kept for the next start.
#include <gtest/gtest.h>

#include "platform/single_instance.h"
#include "tests/support/environment.h"
#include "tests/support/workshop.h"

namespace {

using test::Play;

TEST(MainWindow, ListsTheDirectoriesOfTheDriveThatIsChosen) {
    Play(R"#(
write c:\tolvarin\USER\PROD\ Notes.TXT 'x' -> "Quarvel System Manager - 2.03"; SysMan resizable;
  -> says Drive; drvList {c:; d:}; drvList "c:"; optDesign on; lstDirectory 32x14; says Directories;
  -> lstDirectory {plates}; lstDirectory ""; (cmdMaterial); (cmdDelete); (cmdPrint); focus
  -> lstDirectory
choose lstDirectory plates -> lstDirectory "plates"; cmdDelete; cmdPrint
click optProduction -> optProduction on; lstDirectory {notes.txt; p10}; lstDirectory "";
  -> (cmdDelete); (cmdPrint); focus optProduction
choose lstDirectory p10, Alt+P, Home -> lstDirectory "notes.txt"; cmdMaterial; cmdDelete; cmdPrint;
  -> focus lstDirectory
'p' -> lstDirectory "p10"
PageUp, Left, Up -> lstDirectory "notes.txt"
PageDown, Down -> lstDirectory "p10"
Up, Right ->
no, choose drvList d: -> lstDirectory ""; (cmdMaterial); (cmdDelete); (cmdPrint); focus drvList; box
  -> Yes/No "No Nest data on d:\nWould you like to make d: a Nest data drive?"
click optProduction, yes, choose drvList d: -> drvList "d:"; lstDirectory {}; box again; d:\tolvarin
  -> made; \USER made; \USER\DESIGN made; \USER\PROD made
no, remove d:\tolvarin\USER, click optDesign -> drvList "c:"; optDesign on; lstDirectory {plates};
  -> focus optDesign; box again
no, remove d:, choose drvList d: -> focus drvList; box again
yes, write d:\tolvarin\x '', choose drvList d: -> box again; box critical "d:\tolvarin: exists
  -> already"; c:\tolvarin\network\user1\nestuser.ini +[SystemManager]; +CurrentSysManDrive=d:;
  -> ended 1
no, remove c:\tolvarin\USER -> "Quarvel System Manager - 2.03"; lstDirectory {}; focus lstDirectory;
  -> box again
Esc -> c:\tolvarin\network\user1\nestuser.ini -CurrentSysManDrive=d:; +CurrentSysManDrive=c:; ended
  -> 0
no, remove c: -> box again; box critical "c: there is no such drive"; ended 1
remove d: -> box critical "There is no drive. Drives are the entries a to z of the folder
  -> <drives>."; ended 1
)#");
}

TEST(MainWindow, StartsAsItIsConfigured) {
    Play(R"#(
write c:\WINDOWS\NestCfg32.INI '[System]\r\nNestRootDir= \Plant A \r\nNestHomeDrive=d:\\r\n',
write d:\plant a\SYSTEM\nest.ini '[userinfo]\nusernumber=123\n',
write d:\plant a\network\USER12\nestuser.ini '; kept\n[SystemManager]\nCurrentSysManDrive=C:\n',
write c:\plant a\user\design\Job\x 'x' -> "Quarvel System Manager - 2.03"; SysMan resizable; says
  -> Drive; drvList {c:; d:}; drvList "c:"; optDesign on; lstDirectory 32x14; says Directories;
  -> lstDirectory {job}; lstDirectory ""; (cmdMaterial); (cmdDelete); (cmdPrint); focus lstDirectory
no, choose drvList d: -> drvList "d:"; lstDirectory {}; focus drvList; box Yes/No "No Nest data on
  -> d:\nWould you like to make d: a Nest data drive?"
close -> d:\plant a\network\USER12\nestuser.ini -CurrentSysManDrive=C:\n; +CurrentSysManDrive=d:\n;
  -> ended 0
remove c:\WINDOWS\NestCfg32.INI, write c:\WINDOWS\NESTCFG.INI '[System]\nNestRootDir=\plant a' ->
  -> "Quarvel System Manager - 2.03"; drvList "c:"; lstDirectory {job}; focus lstDirectory
)#");
    const test::Workshop workshop;
    const platform::SingleInstance other;
    platform::SingleInstance::Suffix().back() = 'x';
    EXPECT_FALSE(platform::SingleInstance().AnotherIsRunning());
    platform::SingleInstance::Suffix() = workshop.Folder().filename().string();
    test::Play(workshop, R"#(
-> box "Quarvel System Manager is already running"; ended 0
)#");
}

TEST(MainWindow, DeletesADirectoryAfterTwoQuestions) {
    Play(R"#(
write c:\tolvarin\USER\PROD\OTHER\x 'x', write c:\tolvarin\USER\PROD\P10\TAPE\a.tap 'x',
click cmdDelete, click optProduction, choose lstDirectory p10, no, click cmdDelete -> optProduction
  -> on; lstDirectory {other; p10}; lstDirectory "p10"; cmdMaterial; cmdDelete; cmdPrint; focus
  -> cmdDelete; box Yes/No question "Are you sure you want to delete the p10 directory?"
yes, no, click cmdDelete -> box again; box Yes/No question "Are you REALLY sure you want to delete
  -> the p10 directory?\n(This is pretty serious!)"
yes, yes, click cmdDelete -> lstDirectory {other}; lstDirectory ""; (cmdMaterial); (cmdDelete);
  -> (cmdPrint); focus cmdBackup; box again; box again; c:\tolvarin\USER\PROD\P10 gone
write c:\tolvarin\USER\PROD\P10\TAPE\a 'x', write c:\tolvarin\USER\PROD\P10\NEST\a 'x',
write c:\tolvarin\USER\PROD\P10\COMP\nested\a 'x', protect c:\tolvarin\USER\PROD\P10\TAPE\a,
click optDesign, click optProduction, choose lstDirectory p10 -> lstDirectory {other; p10};
  -> lstDirectory "p10"; cmdMaterial; cmdDelete; cmdPrint; focus lstDirectory
yes, yes, click cmdDelete -> lstDirectory ""; (cmdMaterial); (cmdDelete); (cmdPrint); focus
  -> cmdBackup; box again; box again; c:\tolvarin\USER\PROD\P10\NEST gone
click optDesign, write c:\tolvarin\USER\DESIGN\PLATES\COMP\b 'x' -> optDesign on; lstDirectory
  -> {plates}; focus optDesign
choose lstDirectory plates, yes, yes, click cmdDelete -> focus cmdBackup; box again ..lates..; box
  -> again ..lates..; c:\tolvarin\USER\DESIGN\PLATES\GEOMETRY gone
)#");
}

TEST(MainWindow, SaysWhyAListCannotBeOpened) {
    Play(R"#(
remove c:\tolvarin\system\process.dat, click cmdSysDefaults -> focus cmdSysDefaults; beep; box
  -> "Error in Loading" "File c:\tolvarin\system\process.dat is not found"; beep; box "Error in
  -> Loading" "Problem During Loading files\rCan not start Material List Edit"
write c:\tolvarin\system\process.dat '', remove c:\tolvarin\system\mattypes.dat,
click cmdSysDefaults -> beep; box again "Error in Loading" ..mattype..; beep; box again "Error in
  -> Loading"
write c:\tolvarin\system\mattypes.dat '', remove c:\tolvarin\USER\PROD\P10\MATERIAL.DAT,
click optProduction, choose lstDirectory p10, click cmdMaterial -> optProduction on; lstDirectory
  -> {p10}; lstDirectory "p10"; cmdMaterial; cmdDelete; cmdPrint; focus cmdMaterial; beep; box again
  -> "Error in Loading" ..user\prod\p10\material..; beep; box again "Error in Loading"
write c:\tolvarin\system\process.dat '[Processes]\r\n{1-21:Process#=P#\r\n}' -> ...
click cmdSysDefaults -> box critical "PROCESS.DAT lists more than 20 processes";
  -> c:\tolvarin\network\user1\nestuser.ini +[SystemManager]; +CurrentSysManDrive=c:; ended 1
)#");
}

TEST(MainWindow, MakesADirectory) {
    Play(R"#(
click cmdCreate -> "Create Quarvel Directory"; CreateDir; txtDirName 50x0; says Enter new directory
  -> name; txtDirName ""; focus txtDirName
'  ', Enter -> focus cmdOK
focus txtDirName, ' a*b ', Enter -> txtDirName "[a*b]"; focus txtDirName; beep; box information "The
  -> directory name is invalid."
'c:', Enter, 'a,b', Enter, 'a\\b', Enter, '{1-51:x}', Enter -> txtDirName "[x<51>]"; beep; box
  -> again; beep; box again; beep; box again; beep; box again
'Plates', Enter, focus txtDirName, 'con', Enter, focus txtDirName, 'end.', Enter -> txtDirName
  -> "end."; focus cmdOK; box "The directory Plates already exists"; box again ..con..; box again
  -> ..end...
focus txtDirName, ' Job \xDC.b ', Enter -> lstDirectory {job \xFC.b; plates}; lstDirectory "job
  -> \xFC.b"; cmdDelete; cmdPrint; c:\tolvarin\USER\DESIGN\Job \xDC.b made; \GEOMETRY made
click cmdCreate, 'no', Esc, click cmdCreate, '{1-50:x}', click cmdOK -> lstDirectory {job \xFC.b;
  -> plates; x<50>}; lstDirectory "x<50>"; c:\tolvarin\USER\DESIGN\x<50> made; \GEOMETRY made
click optProduction, click cmdCreate, 'P6', Enter -> "Enter Thickness  for p6 Directory";
  -> frmEnterThickness; txtInitThickness 24x0; says Enter Thickness; txtInitThickness "[6]"; focus
  -> txtInitThickness; c:\tolvarin\USER\PROD\P6 made; \COMP made; \GROUP made; \MATERIAL.DAT +;..;
  -> +;..; +;..; +\r; +[Mat1]; +Type=MS; +Thickness=mm; +Process=Plasma; +\r; +[Mat2]; +Type=SS304;
  -> +Thickness=mm; +Process=Oxy Fuel; \NEST made; \TAPE made
close -> ...
close -> optProduction on; lstDirectory {p10; p6}; lstDirectory "p6"; cmdMaterial
remove c:\tolvarin\system\material.dat, click cmdCreate, 'P8', Enter -> ...
click optProduction -> "Quarvel System Manager - 2.03"; lstDirectory {p10; p6; p8}; lstDirectory "";
  -> (cmdMaterial); (cmdDelete); (cmdPrint); focus optProduction
remove c:\tolvarin\USER\PROD, click cmdCreate, 'P9', Enter -> box critical
  -> "c:\tolvarin\USER\PROD\P9: the directory that it belongs in is missing"; ended 1
)#");
}

TEST(MainWindow, PrintsListings) {
    Play(R"#(
write c:\tolvarin\USER\DESIGN\PLATES\GEOMETRY\b.dsn '{1-1000000:x}', choose lstDirectory plates,
click cmdPrint -> "Print Directory Data"; frmPrint; optAllDir on; (chkComp); chkComp off;
  -> (chkGroups); chkGroups off; (chkNest); chkNest off; (chkTape); chkTape off; focus optAllDir
click cmdSetup -> focus cmdSetup; printer set-up
click cmdOK -> paper: Quarvel for Windows by Halcor.<11>Date <today> // Design Data // plates
  -> directory // Designs // A.DSN<50>1   <today> / b.dsn<45>000000   <today> //
write c:\tolvarin\USER\PROD\P20\COMP\1.cmp '', write c:\tolvarin\USER\PROD\P20\NEST\a '',
click optProduction, choose lstDirectory p10, click cmdPrint -> "Print Directory Data"; chkComp;
  -> chkComp on; chkGroups; chkGroups on; chkNest; chkNest on; chkTape; chkTape on; focus optAllDir
click chkComp, click optSelDir, click cmdOK -> optProduction on; lstDirectory {p10; p20};
  -> lstDirectory "p10"; cmdMaterial; paper: Quarvel for Windows by Halcor.<11>Date <today> //
  -> Production Data // p10 directory // Groups // <No files> // Nests // <No files> // Tapes // <No
  -> files> //
click cmdPrint, click chkGroups, click chkTape, Enter -> paper: Quarvel for Windows by
  -> Halcor.<11>Date <today> // Production Data // p10 directory // Components // <No files> //
  -> Nests // <No files> //; paper: Quarvel for Windows by Halcor.<11>Date <today> // Production
  -> Data // p20 directory // Components // 1.cmp<50>0   <today> // Nests // a<54>0   <today> //
click cmdPrint, Esc,
write c:\tolvarin\USER\PROD\P20\NEST\nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn.nst '',
click cmdPrint, click cmdCancel, click cmdPrint, click chkComp, click chkGroups, click chkTape,
click cmdOK -> paper: Quarvel for Windows by Halcor.<11>Date <today> // Production Data // p10
  -> directory // Nests // <No files> //; paper: Quarvel for Windows by Halcor.<11>Date <today> //
  -> Production Data // p20 directory // Nests // a<54>0   <today> / n<46>.nst<5>0   <today> //
)#");
}

#ifndef _WIN32

TEST(MainWindow, NamesThatDifferInCaseOnlyAreTwoDirectories) {
    Play(R"#(
write c:\tolvarin\USER\PROD\Twin\COMP\a '', write c:\tolvarin\USER\PROD\TWIN\COMP\b '',
click optProduction, choose lstDirectory twin, yes, yes, click cmdDelete -> optProduction on;
  -> lstDirectory {p10; twin; twin}; focus cmdBackup; box Yes/No question "Are you sure you want to
  -> delete the twin directory?"; box Yes/No question "Are you REALLY sure you want to delete the
  -> twin directory?\n(This is pretty serious!)"
choose lstDirectory twin, click cmdPrint, click chkGroups, click chkNest, click chkTape, Enter ->
  -> paper: Quarvel for Windows by Halcor.<11>Date <today> // Production Data // p10 directory //
  -> Components // <No files> //; paper: Quarvel for Windows by Halcor.<11>Date <today> //
  -> Production Data // twin directory // Components // b<54>0   <today> //; paper: Quarvel for
  -> Windows by Halcor.<11>Date <today> // Production Data // twin directory // Components //
  -> a<54>0   <today> //
)#");
}

// On Windows with an interpreter for batch files.

TEST(MainWindow, WritesTheBatchFileOfABackup) {
    const test::Environment noTerminal("PATH", "/nowhere");
    Play(R"#(
ok, cancel, click cmdBackup -> focus cmdBackup; box OK/Cancel none "Please insert a floppy disk";
  -> box again
write b:\x '', click cmdBackup -> "Quarvel Backup"; frmBackup; optAllDirectories on;
  -> (optSelectedDir); drvDest 20x0; says To Drive; drvDest {b:; c:; d:}; drvDest "b:"; focus
  -> optAllDirectories
Enter -> focus cmdOK; box information "The batch file c:\tolvarin\SYSTEM\QVBACKUP.BAT was
  -> written.\nIt was not started: this computer has no command interpreter for it.";
  -> c:\tolvarin\system\QVBACKUP.BAT +@echo off; +echo Backing Up Design Data to b:; +backup
  -> c:\tolvarin\USER\DESIGN\*.* b: /s; +pause
click optAllData, choose drvDest d:, click cmdOK -> optAllData on; drvDest "d:"; box again;
  -> c:\tolvarin\system\QVBACKUP.BAT -echo Backing Up Design Data to b:; -backup
  -> c:\tolvarin\USER\DESIGN\*.* b: /s; +echo Backing Up All Data to d:; +backup
  -> c:\tolvarin\USER\*.* d: /s
click cmdCancel, write a:\x '', click optProduction, choose lstDirectory p10, click cmdBackup ->
  -> "Quarvel Backup"; optSelectedDir; optSelectedDir on; drvDest {a:; b:; c:; d:}; drvDest "a:";
  -> focus optSelectedDir
click cmdOK -> focus cmdOK; box again; c:\tolvarin\system\QVBACKUP.BAT -echo Backing Up All Data to
  -> d:; -backup c:\tolvarin\USER\*.* d: /s; +echo Backing Up p10 to a:; +backup
  -> c:\tolvarin\USER\PROD\p10\*.* a: /s
Esc, write c:\tolvarin\USER\PROD\a&b\x '', click optDesign, click optProduction -> optProduction on;
  -> lstDirectory {a&b; p10}; focus optProduction
choose lstDirectory a&b, click cmdBackup, click cmdOK -> "Quarvel Backup"; box "The batch file
  -> c:\tolvarin\SYSTEM\QVBACKUP.BAT was written.\nIt was not started: the path
  -> c:\tolvarin\USER\PROD\a&b\*.* has a character that the command interpreter would act on.";
  -> c:\tolvarin\system\QVBACKUP.BAT -echo Backing Up p10 to a:; -backup
  -> c:\tolvarin\USER\PROD\p10\*.* a: /s; +echo Backing Up a&b to a:; +backup
  -> c:\tolvarin\USER\PROD\a&b\*.* a: /s
protect c:\tolvarin\system\QVBACKUP.BAT, click optAllData, click cmdOK -> box critical
  -> "c:\tolvarin\SYSTEM\QVBACKUP.BAT: is read-only"; c:\tolvarin\network\user1\nestuser.ini
  -> +[SystemManager]; +CurrentSysManDrive=c:; ended 1
)#");
}

#endif

}  // namespace
