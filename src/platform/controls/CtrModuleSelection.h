#pragma once

#include <array>
#include <string>

#include "platform/controls/ControlArray.h"
#include "platform/controls/CtrComboEdit.h"
#include "platform/controls/Label.h"
#include "platform/controls/Panel.h"
#include "platform/controls/TabStep.h"

namespace ostrand {

// The function modules of a device on PROFIBUS: a row for each parameter of the request group that bears the
// control's Tag; one beyond kModules is reported. A row offers the choices of the parameter's mapping and tells
// what the one that is chosen adds to the cyclic data; the last row is their sum:
//
//   <data:mappedParam name="consistencyModule"><data:mappedItem value="1" key="moduleInput" bytes="5"/>...
//
// The values travel as those of any edit, with the host's change collection.
class CtrModuleSelection : public Panel {
 public:
  static constexpr std::string_view kClassName = "CtrModuleSelection";
  static constexpr int kModules = 8;

  void RequestFocus() override;

  // Marks the modules that the answer names, or all of them if it names none. Answers to other requests pass by.
  void SetErrorData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void SetMessenger(const Ref<Messenger>& messenger) override;
  void Localize(const Ref<ITextTable>& textTable) override;

  std::string_view objectName() const override { return kClassName; }

  // Bytes of cyclic data that the choices on the screen add up to.
  int cyclicBytes() const;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void initialize() override;
  void terminate() override;

 private:
  void bind(int row, const Document& doc, const std::string& name);
  void showRow(int row, bool shown);
  void showCosts();
  int bytesOf(int row) const;
  void leave(int row);

  ControlArray<Label> lblHeads{"lblHeads"};
  ControlArray<Label> lblModule{"lblModule"};
  ControlArray<CtrComboEdit> cceModule{"cceModule"};
  ControlArray<Label> lblBytes{"lblBytes"};
  Label lblTotal{"lblTotal"};
  Label lblTotalBytes{"lblTotalBytes"};

  std::array<Node, kModules> mMappings;
  int mCount = 0;
};

}  // namespace ostrand
