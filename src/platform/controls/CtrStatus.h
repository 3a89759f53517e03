#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/controls/Label.h"
#include "platform/controls/ListView.h"
#include "platform/controls/Ne107.h"
#include "platform/controls/Panel.h"
#include "platform/controls/TextBox.h"

namespace ostrand {

// The status of the device as a tree: a branch for each mapping of status bits in the data set, a leaf for
// each bit of the request group that bears the control's Tag. A mapping's item tells its category:
//
//   <data:mappedParam name="failure"><data:mappedItem value="1" key="on" category="failure"/>...
//
// The worst category rises to the branch and to the root. Bits that are raised and were not at the last
// read are marked as new. A search shows the leaves whose text holds it.
//
// Only the answer that bears the control's Tag as its name is believed. A bit that none has told is not read, and
// the state of the device is not known before every bit has been told.
class CtrStatus : public Panel {
 public:
  static constexpr std::string_view kClassName = "CtrStatus";
  void RequestFocus() override;

  // A failed read leaves the tree as it was and says so in its root. Answers to other requests pass by.
  void SetErrorData(const Document& doc) override;
  void SetOfflineData(const Document& doc) override;
  void SetOnlineData(const Document& doc) override;

  void Localize(const Ref<ITextTable>& textTable) override;

  std::string_view objectName() const override { return kClassName; }

  // The worst category that is known to be raised.
  Ne107 worst() const { return mWorst; }
  // Whether the device has told every bit; before, `worst` is not its state.
  bool isKnown() const;

 protected:
  void declare(Form& form) override;
  void connect() override;
  void resized() override;
  void terminate() override;

 private:
  struct Leaf {
    std::string item;
    Ne107 category;              // when it is raised
    std::optional<bool> raised;  // nothing before the device has told it
    bool isNew = false;
  };
  struct Branch {
    std::string key;
    std::vector<Leaf> leaves;
  };

  // The answer to the request that bears the control's Tag; an empty node for any other document.
  Node ownAnswer(const Document& doc) const;
  bool addLeaf(const std::string& item);
  Leaf* leafOf(const std::string& item);
  void rebuild();

  Label lblSearch{"lblSearch"};
  TextBox txtSearch{"txtSearch"};
  ListView lsvStatus{"lsvStatus"};

  Document mDataSet;
  std::vector<Branch> mBranches;
  std::unordered_map<std::string, std::pair<std::size_t, std::size_t>> mPositions;  // of a leaf, by its item
  std::optional<LocalTime> mLastRead;
  bool mFailed = false;
  Ne107 mWorst = Ne107::Good;
  int mRebuilds = 0;
};

}  // namespace ostrand
