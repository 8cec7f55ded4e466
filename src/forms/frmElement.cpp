#include "forms/frmElement.h"

#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kNoTable = "can not find Atomic.mdb";
constexpr const char* kNoRecord = "No records found with ";
constexpr const char* kByNum = "Num = ";
constexpr const char* kEnergyPicture = "0.0000";  // keV
constexpr const char* kFieldNames[kLineKinds] = {"KAve", "Ka1", "Ka2", "Kb1",
                                                 "La1",  "Lb1", "Lg1", "AbsEdge"};

}  // namespace

frmElement::frmElement(Program& program, FormHost& host, ElementStore& store,
                       const AtomSelTable& selections)
    : Form(host, "frmElement", "Atom"), program_(program), store_(store), selections_(selections) {
  for (TextBox* box : {&txtNum, &txtSymbol, &txtElement, &txtElementName}) box->SetReadOnly(true);
  for (int kind = 0; kind < kLineKinds; ++kind) {
    txtEnergy[kind].SetReadOnly(true);
    txtEnergy[kind].SetCaption(kFieldNames[kind]);
  }
  txtNumFind.EnterPressed.Connect([this] { txtNumFind_Enter(); });
  txtSymbFind.EnterPressed.Connect([this] { txtSymbFind_Enter(); });
  cmdCancel.Click.Connect([this] { Hide(); });
}

bool frmElement::Form_Load() {
  if (store_.IsOpen() || store_.Open(program_.directory + kElementFileName)) return true;
  program_.ports.dialogs.Message(kNoTable);
  return false;
}

void frmElement::Open(int num) {
  if (!Form_Load()) return;
  if (num != 0) FindByNum(num);
  Show();
}

std::optional<ElementRec> frmElement::Found(const std::string& criterion,
                                            std::optional<ElementRec> record) {
  if (record) {
    ShowRecord(*record);
  } else {
    program_.ports.dialogs.Message(kNoRecord + criterion);
  }
  return record;
}

// KEPT: the name stands in two boxes; the one under the Japanese label waits for tables that carry
// a name of their own there.
void frmElement::ShowRecord(const ElementRec& record) {
  txtNum.SetText(std::to_string(record.Num));
  txtSymbol.SetText(record.Symbol);
  txtElement.SetText(record.Element);
  txtElementName.SetText(record.Element);
  for (int kind = 0; kind < kLineKinds; ++kind) {
    const ElementRec::Line& line = record.Lines[static_cast<std::size_t>(kind)];
    txtEnergy[kind].SetCaption(line.field);
    txtEnergy[kind].SetText(line.energy_kev ? Picture(*line.energy_kev, kEnergyPicture) : "");
  }
}

std::optional<ElementRec> frmElement::SearchNum(int num) {
  if (!Form_Load()) return {};
  return Found(kByNum + std::to_string(num), store_.FindByNum(num));
}

void frmElement::ReportLine(const ElementRec& record, int kind,
                            std::vector<ElementEnergy>& energies) {
  const ElementRec::Line& line = record.Lines[static_cast<std::size_t>(kind)];
  if (!line.energy_kev) return;
  energies.push_back({kind, *line.energy_kev, record.Symbol + " " + line.field});
  lblResult.SetCaption(energies.back().label);
}

frmElement::Report frmElement::ReportSelected(const std::optional<ElementRec>& record) {
  if (!record) return {};
  std::vector<ElementEnergy> energies;
  for (int kind = 0; kind < kLineKinds; ++kind) {
    if (selections_[kind][record->Num] == kTrue) ReportLine(*record, kind, energies);
  }
  return energies;
}

frmElement::Report frmElement::FindByNum(int num) {
  return ReportSelected(SearchNum(num));
}

frmElement::Report frmElement::FindForGraph(int num, int kind) {
  const auto record = SearchNum(num);
  if (!record) return {};
  std::vector<ElementEnergy> energies;
  ReportLine(*record, kind, energies);
  return energies;
}

void frmElement::txtNumFind_Enter() {
  if (!Form_Load()) return;
  const auto num = ParseNumber(txtNumFind.Text());
  ReportSelected(Found(kByNum + txtNumFind.Text(),
                       num ? store_.FindByNum(*num) : std::optional<ElementRec>()));
}

void frmElement::txtSymbFind_Enter() {
  if (!Form_Load()) return;
  ReportSelected(
      Found("Symbol = '" + txtSymbFind.Text() + "'", store_.FindBySymbol(txtSymbFind.Text())));
}

}  // namespace dorvane
