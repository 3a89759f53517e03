#include "platform/controls/StatusWords.h"

namespace ostrand {

namespace {

void become(std::string_view name, std::string& word, const std::string& next, Messenger* messenger) {
  word = next;
  if (messenger) messenger->SetParameterStatus(std::string(name), word);
}

}  // namespace

void forwardSyncChanges(std::string_view name, bool succeeded, std::string& word, Messenger* messenger) {
  if (!succeeded) {
    if (word != SyncWord::kSyncError) become(name, word, SyncWord::kSyncError, messenger);
  } else if (word == SyncWord::kNotRead) {
    become(name, word, SyncWord::kSync, messenger);
  } else if (word == SyncWord::kSyncError) {
    become(name, word, SyncWord::kReSync, messenger);
  }
}

void forwardEditChanges(std::string_view name, bool modified, bool correct, std::string& word, Messenger* messenger) {
  if (word == EditWord::kOriginal && modified) become(name, word, EditWord::kEdited, messenger);
  if (word == EditWord::kEditedError && correct) become(name, word, EditWord::kCorrected, messenger);
  if (word == EditWord::kEdited || word == EditWord::kCorrected) {
    if (!correct)
      become(name, word, EditWord::kEditedError, messenger);
    else if (!modified)
      become(name, word, EditWord::kOriginal, messenger);
  }
}

}  // namespace ostrand
