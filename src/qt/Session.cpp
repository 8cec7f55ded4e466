#include "qt/Session.h"

#include <QDir>
#include <QPalette>
#include <QProgressBar>

#include "program/Commands.h"
#include "program/StartEnd.h"
#include "qt/ThemeIcon.h"
#include "qt/binding/Text.h"
#include "qt/views/MainIcons.h"
#include "qt/views/Views.h"
#include "support/NumberText.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr std::string_view kGeometry = "Window";  // base64
constexpr std::string_view kShare = "WindowShare";
constexpr const char* kSharePicture = "0.0000";

// The directory of the program's own files, made and filled where it is the user's.
std::string OwnDirectory(FileLayer& files, const Places& places) {
  const std::string directory = ProgramDirectory(files, places.current, places.user_data);
  if (directory != places.current) {
    QDir().mkpath(ToQString(directory));
    SeedProgramDirectory(files, places.shipped, directory);
  }
  return directory;
}

QIcon IconOf(const ToolBar&, const QString& key) {
  return ThemeIcon(IconNameOf(ToUtf8(key)));
}

}  // namespace

Session::Session(const Places& places, SettingsStore& settings)
    : log(host),
      program({dialogs, files, log, progress, views}, OwnDirectory(files, places)),
      line_marks(program),
      hourglass(program.view),
      main(program, host, launcher, settings),
      graph_select(program, host),
      roi_report(program, host),
      keys(host),
      manual_fit(program, host),
      fit_input(program, host),
      atom(program, host, element_table, settings, line_marks),
      arithmetic(program, host),
      lattice(program, host, settings, line_marks),
      printer(dialogs, files),
      pictures(files),
      print(program, host, settings),
      preview(host),
      printing(program, print, preview, printer),
      picture(program, host, pictures, settings),
      peak_report(program, host, printing),
      property(program, host, launcher, places.shipped),
      result_directory(program, host, settings),
      setting(program, host),
      disp_para(program, host),
      colors(dialogs, host),
      load(program, host, folders),
      calibration_curve(program, host, printer),
      calibration(program, host,
                  CalibWindowsOf(program, load, manual_fit, atom, calibration_curve)),
      form_views(host, IconOf),
      places_(places),
      settings_(settings) {
  views.Add(hourglass);
  views.Add(line_marks);
  views.Add(main);
  views.Add(graph_select);
  views.Add(roi_report);
  views.Add(atom);
  views.Add(calibration);
  AttachForms(main, graph_select, roi_report, log, keys);
  AttachFitForms(main, program, manual_fit, fit_input);
  AttachAtom(main, program, atom);
  AttachArithmetic(main, arithmetic);
  AttachLattice(main, program, lattice);
  AttachPeakReport(main, peak_report);
  AttachPrinting(main, print, printing);
  AttachPicture(main, picture);
  AttachProperty(main, property);
  AttachResultDirectory(main, result_directory);
  AttachSettings(main, program, setting, disp_para, colors);
  AttachCalibration(main, calibration);
  AddViews();
  FormWindow* window = form_views.WindowOf(main);
  dialogs.SetParent(window);
  dialogs.SetDirectory(ToQString(places.current));
  progress.SetBar(window->findChild<QProgressBar*>(kProgressBarName));
  ConnectStatus();
  RestoreGeometry();
  main.Ended.Connect([this] { End(); });
}

Session::~Session() {
  dialogs.SetParent(nullptr);
}

void Session::AddViews() {
  const auto add = [this](auto& form) {
    form_views.Add(form, [&form](FormWindow& window) { LayOut(form, window); });
  };
  add(main);
  add(log);
  add(graph_select);
  add(roi_report);
  add(keys);
  add(manual_fit);
  add(fit_input);
  add(atom);
  add(atom.element);
  add(arithmetic);
  add(lattice);
  add(peak_report);
  add(print);
  add(preview);
  add(picture);
  add(property);
  add(result_directory);
  add(setting);
  add(disp_para);
  add(colors);
  add(colors.dialog);
  add(load);
  add(load.new_path);
  add(calibration_curve);
  add(calibration);
}

void Session::ConnectStatus() {
  StatusPanel& status = main.status;
  connect(&progress, &StatusProgress::Begun, this, [&status] { status.Begin(); });
  connect(&progress, &StatusProgress::Long, this, [&status] { status.BeginLong(); });
  connect(&progress, &StatusProgress::Ended, this,
          [&status](bool stopped) { status.End(stopped); });
  status.SetHandbook(places_.shipped + std::string(kReadMeFileName));
  dialogs.OnMessage([&status](std::string_view message) { status.Tell(message); });
}

void Session::Start() {
  main.Show();
  const bool dark = form_views.WindowOf(main)->palette().color(QPalette::Window).lightness() < 128;
  if (!main.Form_Load(places_.current) && dark) UseColors(program, DarkColors());
}

void Session::RestoreGeometry() {
  const auto geometry = settings_.Texts(kGeometry);
  if (!geometry.empty()) {
    form_views.WindowOf(main)->restoreGeometry(
        QByteArray::fromBase64(QByteArray::fromStdString(geometry.front())));
  }
  const auto share = settings_.Texts(kShare);
  if (share.empty()) return;
  if (const auto value = ParseNumber(share.front())) main.style.fraWinHeight.SetShare(*value);
}

void Session::KeepGeometry() {
  const QByteArray geometry = form_views.WindowOf(main)->saveGeometry();
  settings_.SetTexts(kGeometry, {geometry.toBase64().toStdString()});
  settings_.SetTexts(kShare, {Picture(main.style.fraWinHeight.Share(), kSharePicture)});
}

void Session::End() {
  KeepGeometry();
  main.Hide();
  emit Ended();
}

}  // namespace dorvane
