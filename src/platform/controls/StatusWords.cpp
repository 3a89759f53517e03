#include "platform/controls/StatusWords.h"

#include <optional>

namespace ostrand {

namespace {

// Moves a word and tells the host. The host may change whatever the name was taken from, and the word: what it is told is ours,
// and the name is copied before the first call.
class Telling {
 public:
  Telling(std::string_view name, std::string& word, const Ref<Messenger>& messenger) : mBorrowed(name), mWord(word), mMessenger(messenger) {}

  void become(const std::string& next) {
    mWord = next;
    if (!mMessenger) return;
    if (!mName) mName = mBorrowed;
    mMessenger->SetParameterStatus(*mName, next);
  }

 private:
  const std::string_view mBorrowed;
  std::optional<std::string> mName;
  std::string& mWord;
  const Ref<Messenger> mMessenger;
};

}  // namespace

void forwardSyncChanges(std::string_view name, bool succeeded, std::string& word, const Ref<Messenger>& messenger) {
  Telling telling(name, word, messenger);
  if (!succeeded) {
    if (word != SyncWord::kSyncError) telling.become(SyncWord::kSyncError);
  } else if (word == SyncWord::kNotRead) {
    telling.become(SyncWord::kSync);
  } else if (word == SyncWord::kSyncError) {
    telling.become(SyncWord::kReSync);
  }
}

void forwardEditChanges(std::string_view name, bool edited, bool correct, std::string& word, const Ref<Messenger>& messenger) {
  if (!edited && word == EditWord::kOriginal) return;  // nearly always
  Telling telling(name, word, messenger);
  if (word == EditWord::kOriginal && edited) telling.become(EditWord::kEdited);
  if (word == EditWord::kEditedError && correct) telling.become(EditWord::kCorrected);
  if (word == EditWord::kEdited || word == EditWord::kCorrected) {
    if (!correct)
      telling.become(EditWord::kEditedError);
    else if (!edited)
      telling.become(EditWord::kOriginal);
  }
}

}  // namespace ostrand
