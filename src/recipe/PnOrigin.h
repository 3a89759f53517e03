#pragma once

#include <string>

namespace ostrand {

// Where the value of P1 or P2 on the screen comes from, as far as the device has told. A proposal, or what a user types, stands
// above it until the device answers.
class PnOrigin {
 public:
  enum class Answer { DataSet, Written, Read };

  // The value has come by an answer, or from the data set.
  void take(Answer answer, const std::string& text) {
    if (answer == Answer::Written) {
      mKey = kSent;
      mSent = text;
      return;
    }
    // What was sent and is read back the same is confirmed, and only that.
    const bool isConfirmed = answer == Answer::Read && !mSent.empty() && text == mSent;
    mKey = isConfirmed ? kConfirmed : answer == Answer::Read ? kDevice : kDataSet;
    if (!isConfirmed) mSent.clear();
  }

  // Keys of the text table.
  const char* key(bool isEdited) const { return isEdited ? kProposed : mKey; }

 private:
  static constexpr const char* kUnknown = "";
  static constexpr const char* kDataSet = "originDataSet";
  static constexpr const char* kDevice = "originDevice";
  static constexpr const char* kProposed = "originProposed";
  static constexpr const char* kSent = "originSent";
  static constexpr const char* kConfirmed = "originConfirmed";

  const char* mKey = kUnknown;
  std::string mSent;
};

}  // namespace ostrand
