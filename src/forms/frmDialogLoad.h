// The program's own file dialog: drives, folders and files by a mask, and the name that is taken.
#pragma once

#include <string>
#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/frmInput.h"
#include "program/Program.h"
#include "support/Folders.h"

namespace dorvane {

// Modal: set what it is to offer, call Open, and take FileName or Paths. What is set stays for the
// next opening, the folder that the user has gone to as well.
class frmDialogLoad : public Form {
 public:
  // All outlive the form.
  frmDialogLoad(Program& program, FormHost& host, Folders& folders);

  // Title of the window.
  void DialogCaption(std::string caption) { SetCaption(std::move(caption)); }
  // The folder that is shown; where it can't be read, the nearest one around it that can.
  void Directory(const std::string& path);
  // With its closing separator.
  const std::string& Directory() const { return directory_; }
  // As "C:"; one that the system doesn't have is passed over.
  void drive(const std::string& name);
  // The files that are listed, as "*.npd;*.rpt"; cmbExtName selects it if it has it.
  void mask(std::string mask);
  // Text of the name box.
  void FileName(std::string name) { txtSelFile.SetText(std::move(name)); }
  // After Open: the folder and the chosen name; of several names the folder stands before the
  // first, and ";" between them. Empty after Cancel.
  const std::string& FileName() const { return file_name_; }
  // After Open: the whole path of each chosen name. Names may hold blanks, "," and ";" here, which
  // the text of FileName doesn't keep apart.
  const std::vector<std::string>& Paths() const { return paths_; }
  // Names that are selected in the list, or that "O K" has taken; 0 after Cancel.
  int SelectFileNo() const { return select_file_no_; }
  void VisibleMkDir(bool visible) { cmdMkDir.SetVisible(visible); }
  void VisibleWin(bool visible) { frmSelWin.SetVisible(visible); }
  // Extension that a name without "." gets, with its "." or without; empty: none.
  void DefExt(const std::string& extension);
  // Extensions that cmbExtName offers as masks, the first one selected. "000" stands for the
  // numbered files.
  void SetExt(const std::vector<std::string>& extensions);
  void MultiSelect(bool several) { filFiles.SetSeveral(several); }
  // 0 "PileUp", 1 "LineUp".
  void ModeSelect(int mode) { optGSel.SetIndex(mode); }
  int ModeSelect() const { return optGSel.Index(); }
  // Graphs that cboGSel offers, numbered from 1.
  void MaxGrp(int count);
  // The graph selected at first; a number that isn't offered is passed over.
  void DefGraph(int number) { cboGSel.SetIndex(number - 1); }
  // Number of the selected graph, 0 where none is.
  int GraphNo() const { return cboGSel.Index() + 1; }

  // Reads the folder anew and shows the dialog until it is answered. True for "O K".
  bool Open();

  void drvDrive_Click();
  void dirDirectory_DblClick();
  void filFiles_Click();
  void cmbExtName_Click();
  void txtSelFile_Change();
  void cmdMkDir_Click();
  // Tells the size of the file.
  void cmdDetails_Click();
  // Takes the name. A name that is a folder is gone into, and the dialog stays; a name with a
  // folder of its own is not looked for in the folder shown.
  void cmdSet_Click();
  void cmdCancel_Click();
  void QueryClose() override { cmdCancel_Click(); }

  ComboBox drvDrive{controls_, "drvDrive", "Drive"};  // hidden on a system without drives
  Label lblDirectory{controls_, "lblDirectory"};      // path of the folder shown
  ListBox dirDirectory{controls_, "dirDirectory", "Folders"};
  ListBox filFiles{controls_, "filFiles", "Files"};
  ComboBox cmbExtName{controls_, "cmbExtName", "Type"};
  TextBox txtSelFile{controls_, "txtSelFile", "File"};
  Frame frmSelWin{controls_, "frmSelWin", "Graph"};
  ComboBox cboGSel{controls_, "cboGSel"};
  OptionGroup optGSel{controls_, "optGSel", {"PileUp", "LineUp"}};
  Button cmdMkDir{controls_, "cmdMkDir", "New Path"};
  Button cmdDetails{controls_, "cmdDetails", "Info."};
  Button cmdSet{controls_, "cmdSet", "O K"};
  Button cmdCancel{controls_, "cmdCancel", "Cancel"};

  frmInput new_path;  // asks for the folder that "New Path" makes

 private:
  bool Enter(const std::string& path);
  void ShowFolder(FolderContent content);
  void ShowFiles();
  void ShowDrive();
  bool IsSelection() const { return !selected_.empty() && txtSelFile.Text() == selection_; }
  std::vector<std::string> Names() const;
  std::string PathOf(const std::string& name) const;

  Program& program_;
  Folders& folders_;
  std::string directory_;
  FolderContent content_;
  std::string mask_;
  std::string extension_;              // with its "."
  std::vector<std::string> selected_;  // files selected last, and the text that they have made
  std::string selection_;
  std::string file_name_;
  std::vector<std::string> paths_;
  int select_file_no_ = 0;
};

}  // namespace dorvane
