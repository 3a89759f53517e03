#pragma once

#include <QWidget>
#include <string>

#include "host/Host.h"
#include "workbench/render/Theme.h"
#include "workbench/words/Texts.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace ostrand {

// The bottom line: what is on its way to the device and how far it is, what the views want said, who the user is and how he
// speaks to the device.
class StatusLine : public QWidget, private HostObserver {
 public:
  explicit StatusLine(QWidget* parent = nullptr);
  ~StatusLine() override;

  void setTheme(const Theme& theme);
  void setTexts(const Texts& texts);
  // The host that is shown from now on; nullptr for none.
  void setHost(Host* host);
  // A text of the window's own.
  void say(const QString& text);
  // Mode, level, queue and bus time anew.
  void refresh();

  QString requestText() const;
  QString statusText() const;

 private:
  void requestQueued(const Request&) override { refresh(); }
  void requestSent(const Request&) override { refresh(); }
  void requestAnswered(const Request&, const Document&) override { refresh(); }
  void requestFinished(const Request& request, Outcome outcome) override;
  void requestRefused(const Request& request, const std::string& reason) override;
  void statusLine(const std::string& view, const std::string& text, const std::string& code) override;
  void progress(const std::string& text, int done, int total) override;
  void viewEvent(const std::string& view, const ViewEvent& event) override;
  void viewPlaced(const ViewSite&) override { refresh(); }

  Texts mTexts;
  Host* mHost = nullptr;
  std::string mProgressKey;
  int mDone = 0;
  int mTotal = 0;

  QLabel* mRequest;
  QProgressBar* mProgress;
  QPushButton* mCancel;
  QLabel* mStatus;
  QLabel* mMode;
  QLabel* mLevel;
  QLabel* mBusTime;
};

}  // namespace ostrand
