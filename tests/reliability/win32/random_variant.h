#pragma once

#include <windows.h>

#include <oleauto.h>

#include <memory>
#include <vector>

#include "com/variant.h"
#include "tests/component/automation/scripted_object.h"
#include "tests/testing/random_choices.h"

namespace tillora::testing {

/// A value of any type, sensible or not, with everything that it refers to.
class RandomVariant {
 public:
  explicit RandomVariant(RandomChoices& random) : RandomVariant(random, 0) {}
  ~RandomVariant();
  RandomVariant(const RandomVariant&) = delete;
  RandomVariant& operator=(const RandomVariant&) = delete;

  const VARIANT& get() const { return value_; }
  /// A copy that its owner frees; it refers to this one if this one is a reference.
  win32::Variant copy() const;
  /// The references to the object in it that the component still has.
  ULONG heldReferences() const;

 private:
  RandomVariant(RandomChoices& random, int depth);

  void makePlain(RandomChoices& random);
  void makeText(RandomChoices& random);
  void makeArray(RandomChoices& random);
  void makeReference(RandomChoices& random, int depth);

  VARIANT value_;
  bool isOwned_ = true;  // VariantClear frees it
  std::unique_ptr<RandomVariant> target_;
  win32::ComPtr<ScriptedObject> object_;
};

}  // namespace tillora::testing
