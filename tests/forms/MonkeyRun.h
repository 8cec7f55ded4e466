// One run of the program under a monkey, from its start to its end.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/AttachForms.h"
#include "forms/FakeElementStore.h"
#include "forms/FakePrinter.h"
#include "forms/RecordingPictures.h"
#include "forms/frmDialogMessage.h"
#include "forms/frmInput.h"
#include "program/Program.h"
#include "workspace/ListenerFan.h"

namespace dorvane {

// With its forms joined as on the desktop.
class MonkeyRun {
 public:
  struct Outside {
    Dialogs& dialogs;
    FileLayer& files;
    Progress& progress;
    FormHost& host;
    Launcher& launcher;
    SettingsStore& settings;
    WorkspaceListener& ears;
    std::function<std::vector<std::string>()> choose_files;  // in the calibration dialog
  };

  MonkeyRun(const Outside& outside, const std::string& directory)
      : views(outside.ears),
        log(outside.host),
        program(std::make_unique<Program>(
            Ports{outside.dialogs, outside.files, log, outside.progress, views}, directory)),
        line_marks(*program),
        main(*program, outside.host, outside.launcher, outside.settings),
        graphs(*program, outside.host),
        regions(*program, outside.host),
        keys(outside.host),
        manual_fit(*program, outside.host),
        fit_input(*program, outside.host),
        atom(*program, outside.host, elements, outside.settings, line_marks),
        arithmetic(*program, outside.host),
        property(*program, outside.host, outside.launcher, program->directory),
        lattice(*program, outside.host, outside.settings, line_marks),
        result_directory(*program, outside.host, outside.settings),
        setting(*program, outside.host),
        disp_para(*program, outside.host),
        colors(outside.dialogs, outside.host),
        print(*program, outside.host, outside.settings),
        preview(outside.host),
        printing(*program, print, preview, printer),
        picture(*program, outside.host, pictures, outside.settings),
        report(*program, outside.host, printing),
        load(*program, outside.host, folders),
        curve(*program, outside.host, printer),
        calibration(*program, outside.host, WindowsOfCalibration(outside)),
        message(outside.host),
        input(outside.host) {
    views.Add(line_marks);
    views.Add(main);
    views.Add(graphs);
    views.Add(regions);
    views.Add(atom);
    views.Add(calibration);
    AttachForms(main, graphs, regions, log, keys);
    AttachFitForms(main, *program, manual_fit, fit_input);
    AttachAtom(main, *program, atom);
    AttachArithmetic(main, arithmetic);
    AttachProperty(main, property);
    AttachLattice(main, *program, lattice);
    AttachResultDirectory(main, result_directory);
    AttachSettings(main, *program, setting, disp_para, colors);
    AttachCalibration(main, calibration);
    AttachPrinting(main, print, printing);
    AttachPicture(main, picture);
    AttachPeakReport(main, report);
    main.Ended.Connect([this] { ended = true; });
  }

  ListenerFan views;
  frmLog log;
  std::unique_ptr<Program> program;
  FakeElementStore elements;
  LineMarks line_marks;
  frmDorvane main;
  frmSelGraph graphs;
  frmRoiReport regions;
  frmKeys keys;
  frmManualFit manual_fit;
  frmInputFitParameter fit_input;
  frmAtom atom;
  frmGrpCalc arithmetic;
  frmProperty property;
  frmPeakCal lattice;
  frmResultDirectory result_directory;
  frmSetting setting;
  frmDispPara disp_para;
  frmSetColor colors;
  SystemFolders folders;
  FakePrinter printer;
  RecordingPictures pictures;
  frmPrint print;
  frmPreView preview;
  Printing printing;
  frmPicture picture;
  frmPeakReport report;
  frmDialogLoad load;
  frmCalibCurv curve;
  frmDialogCalibC calibration;
  frmDialogMessage message;
  frmInput input;
  bool ended = false;

 private:
  CalibWindows WindowsOfCalibration(const Outside& outside) {
    CalibWindows windows = CalibWindowsOf(*program, load, manual_fit, atom, curve);
    windows.ChooseFiles = outside.choose_files;
    return windows;
  }
};

}  // namespace dorvane
