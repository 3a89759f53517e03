#pragma once

#include <string>
#include <string_view>

#include "platform/types/ILocalizable.h"
#include "platform/types/ITaviComponent.h"
#include "platform/types/ITaviDataUser.h"
#include "platform/types/ITaviView.h"
#include "platform/types/MessengerEvents.h"
#include "recipe/RecipeSamples.h"

namespace ostrand {

// One recipe of a GYRE transmitter: its curve, its correction P1 and P2, its filler, the newest samples of the device's history with
// what the laboratory found, and a chart that lays all of it over each other. A small view of its own, placed under the Tags
// "recipe1" to "recipe4". It is the life of the recipe and its data paths; what it does with the data stands in the classes below.
class CtrRecipe final : public RecipeSamples,
                        public ITaviView,
                        public ITaviDataUser,
                        public ITaviComponent,
                        public ILocalizable,
                        public MessengerEvents {
 public:
  static constexpr std::string_view kClassName = "CtrRecipe";
  ~CtrRecipe() override;

  // ITaviView. There is nothing to select in it.
  const ControlCollection& GetControls() override { return controls(); }
  Ref<Messenger> GetMessenger() override { return mMessenger; }
  std::string GetSelectedView() override { return {}; }
  void SetSelectedView(const std::string&) override {}
  bool LeaveSelectedView() override { return true; }
  void RequestFocus() override;
  void PrepareToRelease() override;

  void SetErrorData(const Document& doc) override;
  void SetImportData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void SetMessenger(const Ref<Messenger>& messenger) override;
  void Localize(const Ref<ITextTable>& textTable) override;
  void ViewSetUnits() override;

  std::function<MemberAnswer()> member(std::string_view name, const MemberArguments& arguments) override;

 protected:
  void initialize() override;
  void terminate() override { letGo(); }
  bool offerInterface(const Guid& id, void** out) noexcept override;

 private:
  void UserControl_Initialize();
  void UserControl_ReadProperties();
  void letGo();
  void readSwRevision(const Document& dataSet);
  void takeSensorType();
  void takeRevisions(Procedure& proc, const Document& doc);
  void applyWaterRule(Procedure& proc);
  void takeAnswer(Procedure& proc, const Document& doc, const Node& answer);
  void takeParameters(const Document& doc, const Node& answer);
  void noteOrigins(const Document& doc, const Node& answer);

  int mTcuSwRevision = -1;  // -1 is unknown: a device that was never asked is no device without one
  std::string mTcuSwRevisionText;
};

}  // namespace ostrand
