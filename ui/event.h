#pragma once

#include <functional>
#include <utility>

namespace tillora::ui {

/// One event of a control. The control raises it; the owner of the control assigns the handler.
/// Like a form's event procedure, an event has one handler; assigning another replaces it.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }

  /// Whether it has a handler.
  explicit operator bool() const { return handler_ != nullptr; }

  /// The handler may replace itself or end the modal run of its form; it must not destroy its form.
  void raise(Args... args) const {
    if (const Handler handler = handler_) handler(std::forward<Args>(args)...);
  }

 private:
  Handler handler_;
};

}  // namespace tillora::ui
