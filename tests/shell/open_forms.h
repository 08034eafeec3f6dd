#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "form/form.h"

namespace kalvo {

/// Forms as windows hold them: shown ones stay open beside each other until they are closed, and a
/// form that is closed lives on until the action under way has ended. What is shown over the others
/// is used as the test says, and closed.
class OpenForms : public Navigator {
 public:
  using Use = std::function<void(Form& form)>;

  explicit OpenForms(std::map<std::string_view, FormFactory> makers) : makers_(std::move(makers)) {}

  void Attach(Desk& desk) { desk_ = &desk; }

  void Show(std::string_view screen) override {
    front_ = screen;
    Open(screen).Activate();
  }
  void ShowModal(std::string_view screen) override {
    const std::string below = front_;
    const auto use = uses.find(screen);
    ASSERT_NE(use, uses.end()) << "unexpected screen: " << screen;
    Form& form = Open(screen);
    form.Activate();
    form.Derive();
    use->second(form);
    EXPECT_FALSE(IsOpen(screen)) << screen << " was not left";
    front_ = below;
  }
  void Close(std::string_view screen) override {
    if (auto closed = open_.extract(std::string(screen)); !closed.empty()) {
      closed_.push_back(std::move(closed.mapped()));
    }
  }
  void Hide(std::string_view /*screen*/) override {}
  [[nodiscard]] bool IsOpen(std::string_view screen) const override {
    return open_.contains(std::string(screen));
  }
  void ShowWait(std::string_view /*text*/) override {}
  void HideWait() override {}
  void EndProgram() override {}

  /// Forms may look at the desk while they go.
  void CloseAll() {
    closed_.clear();
    open_.clear();
  }

  /// The form at the front, brought up to date; the test fails when it is no such form.
  template <typename FormType>
  FormType& Front() {
    closed_.clear();
    auto* form = dynamic_cast<FormType*>(open_.at(front_).get());
    if (form == nullptr) throw std::runtime_error(front_ + " is at the front");
    form->Derive();
    return *form;
  }

  std::map<std::string, Use, std::less<>> uses;  ///< of screens shown over the others

 private:
  Form& Open(std::string_view screen) {
    std::unique_ptr<Form>& form = open_[std::string(screen)];
    if (form == nullptr) {
      form = makers_.at(screen)(*desk_);
      form->Load();
    }
    return *form;
  }

  std::map<std::string_view, FormFactory> makers_;
  Desk* desk_ = nullptr;
  std::map<std::string, std::unique_ptr<Form>> open_;
  std::vector<std::unique_ptr<Form>> closed_;
  std::string front_;
};

}  // namespace kalvo
