#pragma once

#include <map>
#include <memory>
#include <utility>

#include "ui/event.h"

namespace tillora::ui {

/// Controls of one kind that share a name and are distinguished by an index (txtCompanyDetails[8]).
/// The indexes need not follow the order of creation or of the screen. The array owns them; a
/// container adds them.
template <class T>
class ControlArray {
 public:
  /// Makes a control with this index.
  template <class... Args>
  T& add(int index, Args&&... args) {
    auto& control = controls_[index];
    control = std::make_unique<T>(std::forward<Args>(args)...);
    return *control;
  }

  /// Throws std::out_of_range for an index that no control has.
  T& operator[](int index) const { return *controls_.at(index); }

  int count() const { return static_cast<int>(controls_.size()); }
  int upperBound() const { return controls_.rbegin()->first; }

  /// Gives all controls of the array one handler, called with the index first.
  template <class Base, class... Args, class Handler>
  void on(Event<Args...> Base::* event, Handler handler) const {
    for (const auto& [index, control] : controls_) {
      (*control).*
          event = [index, handler](Args... args) { handler(index, std::forward<Args>(args)...); };
    }
  }

  /// Pairs of index and control pointer, by index.
  auto begin() const { return controls_.begin(); }
  auto end() const { return controls_.end(); }

 private:
  std::map<int, std::unique_ptr<T>> controls_;
};

}  // namespace tillora::ui
