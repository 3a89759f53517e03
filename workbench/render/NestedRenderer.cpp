#include "workbench/render/NestedRenderer.h"

#include "platform/controls/Component.h"
#include "workbench/render/FormPage.h"
#include "workbench/render/ViewPanel.h"

namespace ostrand {

NestedRenderer::NestedRenderer(FormPage& page, NestedControl& control)
    : ControlRenderer(page, control), mModel(control), mGround(new QWidget(&page)) {
  if (const Ref<Component>& nested = mModel.nested()) mListening = nested->changed.connect([this] { this->page().changed(mModel); });
}

NestedRenderer::~NestedRenderer() {
  if (const Ref<Component>& nested = mModel.nested()) nested->changed.disconnect(mListening);
  // The pages listen to the component too, and go before it may go.
  for (const auto& [front, page] : mPages) delete page;
}

std::vector<QWidget*> NestedRenderer::widgets() const { return {mGround}; }

const FormPage* NestedRenderer::inside() const { return mCurrent; }

FormPage& NestedRenderer::current() {
  Component& nested = *mModel.nested();
  Control* const front = nested.front();
  FormPage*& page = mPages[front];
  if (!page) {
    // A nested component without frames has the heading of its holder.
    page = new FormPage(panel(), nested, front, mGround);
    page->setGeometry(mGround->rect());
    page->setTopMargin(!this->page().front() || front);
  }
  return *page;
}

void NestedRenderer::restyle() {
  for (const auto& [front, page] : mPages) page->restyle();
}

void NestedRenderer::sync() {
  if (!mModel.nested()) return;
  FormPage& front = current();
  if (mCurrent != &front) {
    if (mCurrent) mCurrent->hide();
    mCurrent = &front;
    mCurrent->setGeometry(mGround->rect());
    mCurrent->show();
  }
  mCurrent->follow();
}

Extent NestedRenderer::extent() const {
  if (!mCurrent) return {};
  return {.field = mCurrent->minimumWidth(), .height = mCurrent->minimumHeight()};
}

void NestedRenderer::arrange(const Position& position) {
  ControlRenderer::arrange(position);
  if (mCurrent) mCurrent->setGeometry(mGround->rect());
}

}  // namespace ostrand
