#pragma once

#include <QString>
#include <string>

namespace ostrand {

// The panel's own words, beside the texts of the views, in the user's language; English where there is no other.
enum class PanelWord {
  NotRead,
  Read,
  ReadFailed,
  Edited,
  Wrong,
  Corrected,
  Waiting,
  Accepted,
  ReadOnly,
  HeldBack,
  Limits,
  AtLeast,
  AtMost,
  Parameter,
  RawValue,
  LastRead,
  Never,
  Unchecked,
  Checked,
  NothingHere,
  OnDevice,
  ZoomToSamples,
  UndoZoom,
  Maximize,
  CopyPicture,
  SavePng,
  SavePdf,
  SaveCsv,
  Print,
  Chart,
};

QString word(PanelWord word, const std::string& language);

}  // namespace ostrand
