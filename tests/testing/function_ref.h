#pragma once

#include <memory>
#include <type_traits>
#include <utility>

namespace tillora::testing {

/// The parameter `const FunctionRef<void()>& act`: a function that is called before the call it is
/// given to returns. It cannot be kept. Tests pass thousands of lambdas, and for each of them
/// std::function would compile a dozen functions.
template <class Signature>
class FunctionRef;

template <class Result, class... Arguments>
class FunctionRef<Result(Arguments...)> {
 public:
  template <class Function>
    requires(!std::is_same_v<std::remove_cvref_t<Function>, FunctionRef>)
  FunctionRef(Function&& function)
      : function_(const_cast<void*>(static_cast<const void*>(std::addressof(function)))),
        call_(&call<std::remove_reference_t<Function>>) {}
  FunctionRef(const FunctionRef&) = delete;
  FunctionRef& operator=(const FunctionRef&) = delete;

  Result operator()(Arguments... arguments) const {
    return call_(function_, std::forward<Arguments>(arguments)...);
  }

 private:
  template <class Function>
  static Result call(void* function, Arguments... arguments) {
    return static_cast<Result>(
        (*static_cast<Function*>(function))(std::forward<Arguments>(arguments)...));
  }

  void* function_;
  Result (*call_)(void*, Arguments...);
};

}  // namespace tillora::testing
