// SPDX-License-Identifier: MIT
// The hardware dialog: what unit is being configured? Its choices build the part number as they are made.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Form.h"

namespace torvane {

class frmHardware : public Form {
 public:
  frmHardware();

  Label lblDescription{*this, "lblDescription"};
  Label lblModel{*this, "lblModel", "&Model#:"};
  ComboBox cboModel{*this,
                    "cboModel",
                    {},  // listedModels
                    "Choose the model from the list; the part number follows the choices below"};
  CheckBox chkMonitor{*this, "chkMonitor", "Mo&nitor only",
                      "The unit shows its reading and drives no output"};
  CheckBox chkAlarmsOnly{*this, "chkAlarmsOnly", "&Alarms Only (-AL)",
                         "The unit has alarms and no control outputs"};
  CheckBox chkSimpleMenu{*this, "chkSimpleMenu", "Simple Men&u (-SM)",
                         "The unit has the short menu: two alarms with dead bands"};
  CheckBox chkIsoAnalogOutput{*this, "chkIsoAnalogOutput", "Iso Analog Output",
                              "No listed model has an isolated analog output"};
  CheckBox chkAllPartNumbers{*this, "chkAllPartNumbers", "Sho&w All Models",
                             "The list holds all models in any case"};
  Frame fraOut1{*this, "fraOut1", "Ouput 1"};
  Frame fraOut2{*this, "fraOut2", "Output 2"};
  // 0 to 3 for output 1, 4 to 7 for output 2.
  std::array<OptionButton, 8> optOut{{{fraOut1, "optOut_0", "&2 - SSR"},
                                      {fraOut1, "optOut_1", "&3 - Relay"},
                                      {fraOut1, "optOut_2", "&4 - Pulse"},
                                      {fraOut1, "optOut_3", "&5 - VI (Analog)"},
                                      {fraOut2, "optOut_4", "2 - &SSR"},
                                      {fraOut2, "optOut_5", "3 - &Relay"},
                                      {fraOut2, "optOut_6", "4 - &Pulse"},
                                      {fraOut2, "optOut_7", "&0 - None"}}};
  Frame fraOptions{*this, "fraOptions", "Options"};
  ListBox lstOption{fraOptions,
                    "lstOption",
                    {"RS-232", "RS-485", "(EIS)Ethernet RS-232", "(EI)Ethernet RS-485", "EI w/Ext RS-485"},
                    "Communication option of the unit"};
  Label lblAddress{fraOptions, "lblAddress", "RS485 A&ddress"};
  TextBox txtAddress{fraOptions, "txtAddress", "Address of the unit on its bus, 0 to 199"};
  CommandButton cmdOk{*this, "cmdOk", "&OK"};
  CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};

  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload() override;  // the window's frame does what Cancel does

  // The part number of what is chosen; fits the main window's output controls to it. Empty once the dialog
  // has been answered.
  std::string makeModel();
  void writeDescription();
  // The choices that a family offers (familyCode).
  void setFamily(std::int32_t code);
  // Chooses the longest entry with which Hardware.ModelNumber begins, if there is one.
  void selectListedModel();
  // Whether it has been loaded for the unit that the records tell of now. Factory defaults and a write leave
  // a dialog behind; a file that is opened then brings another unit.
  bool isOfThisUnit() const;
  // The default model with both outputs SSR, RS-232 and no address; the main window is left alone.
  void showFactoryFit();
  // New rows for lstOption; returns the row that was chosen. None is chosen after it.
  std::int16_t offerOptions(std::span<const std::string_view> rows);

  // Takes the model over; also called without the dialog ever being shown.
  void cmdOk_Click();
  void cmdCancel_Click();

 private:
  void showUnit();
  void tickMonitor();
  void showOutputs();
  void showAddress();
  void showModel();
  void showDefaultModel(int named);
  void settleModel();
  bool isRkw77Unit() const;
  bool namesListedModel() const;  // the part number
  void showRow(int row);
  void showNumber();
  void rebuild();
  std::string numberOfChoices() const;
  void fitMainWindow() const;
  void cboModel_Click();
  void cboModel_Change();
  void chkMonitor_Click();
  void chkAlarmsOnly_Click();
  void chkSimpleMenu_Click();
  void lstOption_Click();
  void optOut_Click();
  void txtAddress_Validate();
  void offerRkw77Line();
  void offerFamily(std::int32_t code);
  void takeOutputs() const;
  void takeKind() const;

  // The part of the model record that choosing an entry changes at once; Cancel puts it back.
  struct ModelChoice {
    std::int16_t isRkw77 = 0;
    std::int32_t modelIndex = 0;
    std::string baseModel;
  };

  // What the dialog was loaded for.
  struct Unit {
    std::string modelNumber;
    std::int16_t menuKind = 0;
    std::int16_t monitorOnly = 0;
    std::int16_t busMode = 0;
    std::array<std::int16_t, 8> outputs{};

    static Unit now();
    bool operator==(const Unit&) const = default;
  };

  std::string lastPartNumber_;  // the text that cboModel must show
  std::int32_t family_ = 0;     // becomes DeviceClass with OK
  bool loading_ = false;        // controls are being filled, nothing is chosen
  bool ready_ = false;          // neither OK nor Cancel has been pressed
  bool keepNumber_ = false;     // an output is set without a new part number
  ModelChoice beforeShowing_;
  Unit loadedFor_;
};

// The rows of lstOption at run time.
inline constexpr std::string_view familyOptions[] = {"RS-232", "RS-485", "(EIS)Ethernet RS-232",
                                                     "(EI)Ethernet RS-485", "EI RS - 485"};
inline constexpr std::string_view rkw77Options[] = {"RS -232", "RS -485"};

}  // namespace torvane
