#include <gtest/gtest.h>

#include <sstream>
#include <system_error>

#include "component/automation/host_failure.h"
#include "component/automation/message_boxes.h"
#include "identity/ledvane_link.h"
#include "tests/component/automation/options_fixture.h"
#include "tests/component/automation/server_library.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/embedded_text.h"

// Raises every failure that docs/errors.md lists and compares it with its row.
namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::Call;
using testing::Failing;
using testing::ScriptedObject;
using testing::ServerLibrary;
using win32::Bstr;
using win32::ComPtr;
using win32::Variant;

struct Row {
  std::string failure;
  std::string number;
  std::string basic;
  std::string source;
  std::string description;
};

std::vector<Row> rows() {
  std::vector<Row> found;
  std::istringstream lines(testing::embeddedText(4));
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("| ") || line.starts_with("| failure |")) continue;
    std::erase(line, '`');
    std::vector<std::string> cells;
    for (std::size_t start = 2; start < line.size();) {
      const auto end = line.find(" |", start);
      cells.push_back(line.substr(start, end - start));
      start = end + 3;
    }
    cells.resize(5);
    found.push_back({cells[0], cells[1], cells[2], cells[3], cells[4]});
  }
  return found;
}

/// What a caller learns about a failure.
struct Raised {
  HRESULT number = S_OK;
  Text source;
  Text description;
};

std::string numberText(HRESULT number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08lX", static_cast<unsigned long>(number));
  return text;
}
std::string basicText(HRESULT number) {
  const auto bits = static_cast<std::uint32_t>(number);
  return bits >> 16 == 0x800A ? std::to_string(bits & 0xFFFF) : "none";
}
std::string textOrNone(const Text& text) { return text.empty() ? "none" : toUtf8(text); }

/// The text, with "..." in the places where the expected text has it.
std::string withGap(const std::string& text, const std::string& expected) {
  const auto gap = expected.find("...");
  if (gap == std::string::npos) return text;
  const std::string before = expected.substr(0, gap);
  const std::string after = expected.substr(gap + 3);
  if (text.size() <= before.size() + after.size() || !text.starts_with(before) ||
      !text.ends_with(after)) {
    return text;
  }
  return before + "..." + after;
}

/// A late-bound call, as a script engine makes it.
Raised late(IDispatch& object, const wchar_t* member, WORD flags,
            const Variant* argument = nullptr) {
  auto* name = const_cast<wchar_t*>(member);
  DISPID id = DISPID_UNKNOWN;
  const HRESULT known = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(known)) return {known, {}, {}};
  VARIANTARG given{};
  if (argument != nullptr) given = argument->get();
  DISPID newValue = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{&given, isPut ? &newValue : nullptr, argument == nullptr ? 0U : 1U,
                        isPut ? 1U : 0U};
  Variant result;
  ExceptionInfo exception;
  UINT wrong = 0;
  const HRESULT invoked = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                        isPut ? nullptr : result.out(), exception.out(), &wrong);
  if (invoked != DISP_E_EXCEPTION) return {invoked, {}, {}};
  return {exception.get().scode, Bstr::textOf(exception.get().bstrSource),
          Bstr::textOf(exception.get().bstrDescription)};
}

/// The result of an early-bound call with the thread's error information.
Raised early(const testing::FunctionRef<HRESULT()>& call) {
  SetErrorInfo(0, nullptr);
  Raised raised{call(), {}, {}};
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.out()) != S_OK) return raised;
  Bstr source;
  Bstr description;
  info->GetSource(source.out());
  info->GetDescription(description.out());
  raised.source = source.text();
  raised.description = description.text();
  return raised;
}

ScriptedObject::Member failing(const Failing& failure) {
  return [failure](const Call&) -> Variant { throw failure; };
}
ScriptedObject::Member givingNothing() {
  return [](const Call&) { return Variant(); };
}
template <class T>
ScriptedObject::Member giving(T value) {
  return [value](const Call&) { return Variant(value); };
}
Variant reference(const ComPtr<ScriptedObject>& object) {
  return Variant(static_cast<IDispatch*>(object.get()));
}
ScriptedObject::Member giving(const ComPtr<ScriptedObject>& object) {
  return [object](const Call&) { return reference(object); };
}
Failing raising(std::int32_t number, const Text& source, const Text& description) {
  return {number, Error(number, source, description), Failing::How::exception};
}
const Failing kDenied{E_ACCESSDENIED, {}};

/// A class of which no object can be made.
class NoObjects final : public IClassFactory {
 public:
  virtual ~NoObjects() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, void**) override {
    return E_ACCESSDENIED;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

class ErrorsTest;
struct Case {
  const char* failure;  // how its row begins
  Raised (ErrorsTest::*raise)();
};
void PrintTo(const Case& row, std::ostream* stream) { *stream << row.failure; }

class ErrorsTest : public OptionsObjectTest, public ::testing::WithParamInterface<Case> {
 public:
  static const std::vector<Case>& cases();

 protected:
  Raised show() { return late(*object.get(), L"ShowOptions", DISPATCH_METHOD); }
  Raised put(const wchar_t* property, const Variant& value) {
    return late(*object.get(), property, DISPATCH_PROPERTYPUT, &value);
  }
  Raised showAndSave() {
    whileOpen([this](frmOptions& dialog) {
      rename(dialog, u"Corner Shop");
      desk.user().accessKey(u'o');
    });
    return show();
  }
  /// Shows the dialog over a database whose member is another one.
  Raised showWith(const Text& member, const ScriptedObject::Member& value) {
    automationHost.database->add(member, value);
    giveHost();
    return show();
  }
  /// An options record in which nothing is stored, with one member of another kind.
  static ComPtr<ScriptedObject> record(const Text& member, const ScriptedObject::Member& value) {
    auto object = ScriptedObject::make();
    for (const OptionInfo& info : kOptionTable) object->add(info.name, givingNothing());
    object->add(u"NoValue", giving(false));
    object->add(u"Commit", givingNothing());
    object->add(member, value);
    return object;
  }
  Raised showWithStored(const ScriptedObject::Member& stored) {
    return showWith(u"OptionsRecord", giving(record(u"LVSummariseBits", stored)));
  }
  Raised showFailing(const Failing& failure) {
    return showWith(u"OptionsRecord", failing(failure));
  }

  // Using the component

  Raised nothingSet() { return show(); }
  Raised wrongObject() {
    const Variant stranger = reference(ScriptedObject::make());
    return late(*object.get(), L"DBJetObject", DISPATCH_PROPERTYPUTREF, &stranger);
  }
  Raised noObject() { return put(L"DBJetObject", Variant(std::int32_t{5})); }
  Raised shownTwice() {
    giveHost();
    Raised raised;
    whileOpen([&](frmOptions& dialog) {
      raised = show();
      EXPECT_TRUE(dialog.isShown());
    });
    EXPECT_EQ(show().number, S_OK);
    return raised;
  }
  Raised tabBeyondTheLast() {
    giveHost();
    EXPECT_EQ(put(L"SelectedTab", Variant(std::int16_t{99})).number, S_OK);
    return show();
  }
  Raised tabTooLarge() { return put(L"SelectedTab", Variant(std::int32_t{70000})); }
  Raised wrongDirection() {
    EXPECT_EQ(put(L"ChangedDataFile", Variant(true)).number, DISP_E_MEMBERNOTFOUND);
    return late(*object.get(), L"FirstUse", DISPATCH_PROPERTYGET);
  }
  Raised unknownMember() { return late(*object.get(), L"HideOptions", DISPATCH_METHOD); }
  Raised tooManyArguments() {
    const Variant argument(std::int32_t{1});
    return late(*object.get(), L"ShowOptions", DISPATCH_METHOD, &argument);
  }
  Raised nullPointer() {
    return early([this] { return object->ShowOptions(nullptr); });
  }
  Raised recordCreated() {
    return early([] {
      ComPtr<IUnknown> created;
      return CoCreateInstance(CLSID_clsRandomPrice, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                              created.outVoid());
    });
  }
  Raised aggregated() {
    return early([this] {
      ComPtr<IUnknown> created;
      const auto outer = ComPtr<_Options>(object.get()).query<IUnknown>();
      return server.factory()->CreateInstance(outer.get(), IID_IUnknown, created.outVoid());
    });
  }
  Raised noListener() {
    const auto point = testing::connectionPoint(*object.get());
    return early([&] {
      DWORD cookie = 0;
      return point->Advise(point.query<IUnknown>().get(), &cookie);
    });
  }
  Raised notAdvised() {
    const auto point = testing::connectionPoint(*object.get());
    return early([&] { return point->Unadvise(5); });
  }
  Raised otherScope() {
    return early([this] { return server.install(true, L"everyone"); });
  }

  // The host's objects

  Raised hostRaises() {
    return showFailing(raising(basicError(1001), u"Shop.Database", u"The disk is full."));
  }
  Raised hostSaysNothing() { return showFailing(raising(basicError(1001), u"", u"")); }
  Raised bareBasicNumber() { return showFailing(raising(61, u"Shop.Database", u"Disk full.")); }
  Raised noNumber() { return showFailing(raising(0, u"Shop.Database", u"Something happened.")); }
  Raised bareResult() {
    automationHost.database->add(u"OptionsRecord", giving(record(u"Commit", failing(kDenied))));
    giveHost();
    return showAndSave();
  }
  Raised missingMember() {
    const auto lacking = record(u"Commit", givingNothing());
    lacking->remove(u"CompanyName");
    return showWith(u"OptionsRecord", giving(lacking));
  }
  Raised missingTitle() {
    automationHost.app->remove(u"Title");
    giveHost();
    return show();
  }
  Raised tableFails() {
    const auto table = ScriptedObject::make();
    for (const char16_t* member : {u"MoveFirst", u"MoveNext", u"EOF", u"FindFirst", u"FindNext"}) {
      table->add(member, failing(kDenied));
    }
    return showWith(u"ClassTable", giving(table));
  }
  Raised objectMissing() { return showWith(u"OptionsRecord", givingNothing()); }
  Raised objectOfAnotherType() { return showWith(u"OptionsRecord", giving(std::int32_t{5})); }
  Raised valueOfAnotherType() { return showWithStored(giving(u"many")); }
  Raised valueTooLarge() { return showWithStored(giving(1e12)); }
  Raised messageBoxRefused() {
    CLSID hostClass{};
    EXPECT_EQ(CLSIDFromProgID(L"TilloraHost.HostMessageBox", &hostClass), S_OK);
    NoObjects factory;
    DWORD registration = 0;
    EXPECT_EQ(CoRegisterClassObject(hostClass, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                    &registration),
              S_OK);
    const Raised raised = early([] {
      return guarded(IID__Options, [] {
        AutomationMessageBoxes([] { return HWND{}; }, u"TilloraHost.HostMessageBox").create();
      });
    });
    CoRevokeClassObject(registration);
    return raised;
  }

  // The machine

  Raised tooManyFiles() {
    constexpr int kMore = 32768;
    host.dataFile = u"C:\\Books\\books.lvd";
    machine.files.matches[u"C:\\Books\\LVPst*.pos"] = kMore;
    EXPECT_EQ(put(L"LVFileExtension", Variant(u"lvd")).number, S_OK);
    giveHost();
    whileOpen(
        [this](frmOptions& dialog) { desk.user().click(dialog.tabs().ledvaneLink.cmdLedvane); });
    return show();
  }
  Raised systemRefuses() {
    return early([] {
      return guarded(IID__Options, [] {
        throw std::system_error(ERROR_ACCESS_DENIED, std::system_category(), "CreateWindowExW");
      });
    });
  }
  Raised outOfMemory() {
    return early([] { return guarded(IID__Options, [] { throw std::bad_alloc(); }); });
  }

  Apartment apartment;
  ServerLibrary server;
};

const std::vector<Case>& ErrorsTest::cases() {
  using T = ErrorsTest;
  static const std::vector<Case> all = {
      {"A host object that is needed was not set", &T::nothingSet},
      {"The object set lacks a member", &T::wrongObject},
      {"Something other than an object is set", &T::noObject},
      {"ShowOptions is called while a dialog", &T::shownTwice},
      {"ShowOptions is called with SelectedTab beyond", &T::tabBeyondTheLast},
      {"SelectedTab is set to a number of more", &T::tabTooLarge},
      {"A property that can only be set is read", &T::wrongDirection},
      {"A member is called that the component", &T::unknownMember},
      {"A method is called with arguments", &T::tooManyArguments},
      {"An early-bound caller passes a null pointer", &T::nullPointer},
      {"clsRandomPrice is created", &T::recordCreated},
      {"The class is created as a part of another", &T::aggregated},
      {"The object advised for events", &T::noListener},
      {"A listener is unadvised", &T::notAdvised},
      {"DllInstall is called with a scope other", &T::otherScope},
      {"A member raises an error: everything is passed on", &T::hostRaises},
      {"A member raises an error without a source", &T::hostSaysNothing},
      {"A member raises a number from 1 to 65535", &T::bareBasicNumber},
      {"A member raises an error without a number", &T::noNumber},
      {"A member returns a failure without", &T::bareResult},
      {"A member is called that the object does not", &T::missingMember},
      {"A member of App", &T::missingTitle},
      {"A member of a table fails", &T::tableFails},
      {"A property that gives an object gives none", &T::objectMissing},
      {"A property that gives an object gives something", &T::objectOfAnotherType},
      {"A stored value cannot be converted", &T::valueOfAnotherType},
      {"A stored value is too large", &T::valueTooLarge},
      {"The class TilloraHost.HostMessageBox", &T::messageBoxRefused},
      {"There are more than 32767 files", &T::tooManyFiles},
      {"The system refuses something", &T::systemRefuses},
      {"Memory runs out", &T::outOfMemory},
  };
  return all;
}

TEST_P(ErrorsTest, IsRaisedAsItsRowSays) {
  const auto table = rows();
  const auto row = std::ranges::find_if(table, [](const Row& candidate) {
    return candidate.failure.starts_with(GetParam().failure);
  });
  ASSERT_NE(row, table.end()) << "docs/errors.md has no row that begins: " << GetParam().failure;
  const Raised raised = (this->*GetParam().raise)();
  SCOPED_TRACE("docs/errors.md: " + row->failure);
  EXPECT_EQ(numberText(raised.number), row->number);
  EXPECT_EQ(basicText(raised.number), row->basic);
  EXPECT_EQ(textOrNone(raised.source), row->source);
  EXPECT_EQ(withGap(textOrNone(raised.description), row->description), row->description);
  EXPECT_EQ(desk.screen().pointer(), ui::Pointer::standard);
}

INSTANTIATE_TEST_SUITE_P(Rows, ErrorsTest, ::testing::ValuesIn(ErrorsTest::cases()));

TEST(ErrorTableTest, EveryRowIsRaisedByATest) {
  for (const Row& row : rows()) {
    const auto cases = std::ranges::count_if(ErrorsTest::cases(), [&](const Case& candidate) {
      return row.failure.starts_with(candidate.failure);
    });
    EXPECT_EQ(cases, 1) << "docs/errors.md: " << row.failure;
  }
  EXPECT_EQ(rows().size(), ErrorsTest::cases().size());
}

}  // namespace
}  // namespace tillora::automation
