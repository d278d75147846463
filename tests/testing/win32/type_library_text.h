#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

namespace tillora::testing {

/// A type library as text, the same for both bitnesses: a block per type in the library's order, in
/// it a line per member in the order of the interface. Indented by two are what a host depends on,
/// by six, in quotes, the help strings:
///
///   interface _Options {f1183839-679f-4eb0-afea-cef23a5717c6} dual
///         "Lets the user edit all point-of-sale options in one dialog."
///     propputref DBJetObject([in] IDispatch*) as HRESULT, id 1, vtable 7
///         "The host's JetDatabase: its shop database."
std::string typeLibraryText(ITypeLib& library);

/// What the change from one text of typeLibraryText() to another means for existing hosts: a line
/// for each difference, empty if only help strings differ. A line begins with the type and the
/// member and says what was and what is.
std::vector<std::string> brokenPromises(const std::string& frozen, const std::string& present);

/// The members and types without a help string. Constants of an enumeration have none: the compiler
/// of the interface definition takes a help string for the enumeration only.
std::vector<std::string> withoutHelp(const std::string& text);

}  // namespace tillora::testing
