#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

#include "workbench/conversation/ConversationLog.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

class QAction;
class QLabel;
class QLineEdit;
class QToolButton;
class QHBoxLayout;
class QTreeView;

namespace ostrand {

class ConversationFilter;

// The conversation under the view: a line for each call and event, its document below it when it is opened; choice of kinds,
// search, copy, save and record.
class ConversationPanel : public QWidget {
 public:
  explicit ConversationPanel(ConversationLog& log, QWidget* parent = nullptr);

  void setTheme(const Theme& theme);
  void setTexts(const Texts& texts);
  void setRecording(bool on);
  void setKindShown(ConversationLog::Kind kind, bool shown);
  bool isKindShown(ConversationLog::Kind kind) const;
  void search(const QString& text);
  // The chosen lines, or all that are shown if none is chosen.
  QString chosenText() const;
  void copy();
  // Lines that pass the choice of kinds and the search.
  int shownLines() const;
  QTreeView& list() const { return *mList; }
  QSize minimumSizeHint() const override;

  std::function<void()> onSave;
  std::function<void(bool on)> onRecord;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void restyle();
  void fit();

  ConversationLog& mLog;
  Texts mTexts;
  ConversationFilter* mFilter;
  QTreeView* mList;
  QLineEdit* mSearch;
  QToolButton* mKinds;
  QToolButton* mRecord;
  QHBoxLayout* mBar;
  std::vector<QToolButton*> mDispensable;  // the first goes first
  std::array<QAction*, ConversationLog::kKinds> mKindActions{};
};

}  // namespace ostrand
