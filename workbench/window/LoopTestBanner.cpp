#include "workbench/window/LoopTestBanner.h"

#include "platform/base/NumberText.h"
#include "platform/xml/Vocabulary.h"

namespace ostrand {

LoopTestBanner::LoopTestBanner(Host& host) : mHost(host) {
  setProperty("role", QStringLiteral("banner"));
  setWordWrap(true);
  setAccessibleName(QStringLiteral("Loop test"));
  hide();
  mHost.observers().add(*this);
}

LoopTestBanner::~LoopTestBanner() { mHost.observers().remove(*this); }

void LoopTestBanner::setTexts(const Texts& texts) {
  mTexts = texts;
  refresh();
}

void LoopTestBanner::viewBusy(const std::string&, const std::string& key) {
  if (key == "testing") mDriving = true;
  refresh();
}

void LoopTestBanner::requestAnswered(const Request&, const Document& answer) {
  if (!mDriving) return;
  const AnswerHead head = headOf(answer);
  if (head.name != "loopTest" || !head.write || head.local || !head.errorCode.empty()) return;
  const Node response = ostrand::response(answer);
  for (Node item = response.firstChild(); item; item = item.nextSibling()) {
    if (item.findAttribute("name").value_or("") != "loopTestValue") continue;
    const Node value = item.firstChild();
    const std::optional<double> number = value ? parseNumber(value.text(), '.') : std::nullopt;
    if (number) mDriving = *number != 0.0;
  }
  refresh();
}

void LoopTestBanner::refresh() {
  DataSet* const dataSet = mHost.dataSet();
  const QString device = dataSet ? qt(dataSet->current("tag")) : QString();
  setText(QStringLiteral("⚠  %1, %2: the test may still drive the output. Keep the control loop out of automatic control until the test has been stopped.")
              .arg(device, mTexts("loopTest", "Loop test")));
  setVisible(mDriving);
}

}  // namespace ostrand
