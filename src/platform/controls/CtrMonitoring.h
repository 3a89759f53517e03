#pragma once

#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/controls/Choices.h"
#include "platform/controls/DeviceValue.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Panel.h"
#include "platform/types/MessengerEvents.h"

namespace ostrand {

// The live values: a table of name, value, unit and trend. It begins with the parameters of the request
// group that bears its Tag, and takes in what else the device answers for that group, as far as the data
// set knows it. Other answers bring new values for what is there, and no rows.
class CtrMonitoring : public Panel, public MessengerEvents, private UnitSource {
 public:
  static constexpr std::string_view kClassName = "CtrMonitoring";
  ~CtrMonitoring() override;

  void RequestFocus() override;

  // An error answer changes no value: the last good ones stay.
  void SetErrorData(const Document&) override {}
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void SetMessenger(const Ref<Messenger>& messenger) override;
  void Localize(const Ref<ITextTable>& textTable) override;
  void ViewSetUnits() override;

  std::string_view objectName() const override { return kClassName; }

  // The last values of a row (from 1), oldest first, in the data set's unit.
  static constexpr std::size_t kTrendLength = 60;
  std::vector<double> trend(int row) const;

 protected:
  void declare(Form& form) override;
  void resized() override;
  void terminate() override;

 private:
  struct Variable : Counted {
    std::string name;
    DeviceValue value;
    Choices choices;
    bool read = false;
    std::array<double, kTrendLength> values{};
    std::size_t count = 0;  // how many ever came
  };

  // A row is held while it is shown: what the host is asked meanwhile may bring another data set.
  Ref<Variable> variableOf(const Node& parameter, int& row);
  Ref<IUnitConverter> converter() const override;
  void take(Variable& variable, int row, const Node& item);
  void showRow(const Variable& variable, int row);
  void showTexts(const Variable& variable, int row);
  std::string trendText(const Variable& variable) const;

  ListView lsvMonitoring{"lsvMonitoring"};
  Document mDataSet;
  std::vector<Ref<Variable>> mVariables;
  std::unordered_map<std::string, int> mRows;  // by name, from 1
};

}  // namespace ostrand
