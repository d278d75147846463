// Memory runs out at every allocation of the component as a host has it, with real windows: the
// host gets the failure, nothing is left behind, and the component works again.
#include <gtest/gtest.h>

#include <algorithm>

#include "component/automation/random_price_record.h"
#include "tests/component/automation/event_listener.h"
#include "tests/reliability/memory_walk.h"
#include "tests/reliability/win32/component_program.h"
#include "tests/testing/function_ref.h"
#include "tests/testing/win32/holdings.h"

namespace tillora::testing {
namespace {

using win32::ComPtr;

/// During its lifetime FailingMemory takes the system's task memory in, too: where the platform
/// keeps automation texts in it (Wine does, Windows does not), they run out as well.
class TaskMemory final : public IMallocSpy {
 public:
  TaskMemory() {
    // The platform keeps freed texts for the next ones.
    if (const HMODULE automation = GetModuleHandleW(L"oleaut32.dll")) {
      const auto address = reinterpret_cast<void (*)()>(GetProcAddress(automation, "SetOaNoCache"));
      if (address != nullptr) reinterpret_cast<void(WINAPI*)()>(address)();
    }
    CoRegisterMallocSpy(this);
  }
  ~TaskMemory() { CoRevokeMallocSpy(); }
  TaskMemory(const TaskMemory&) = delete;
  TaskMemory& operator=(const TaskMemory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IMallocSpy;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override {
    return size == 0 || !FailingMemory::failsNext() ? size : 0;
  }
  void* STDMETHODCALLTYPE PostAlloc(void* block) override { return block; }
  void* STDMETHODCALLTYPE PreFree(void* block, BOOL /*spied*/) override { return block; }
  void STDMETHODCALLTYPE PostFree(BOOL /*spied*/) override {}
  SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** given,
                                      BOOL /*spied*/) override {
    *given = block;
    return size;
  }
  void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL /*spied*/) override { return block; }
  void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL /*spied*/) override { return block; }
  SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL /*spied*/) override { return size; }
  void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL /*spied*/) override { return block; }
  int STDMETHODCALLTYPE PostDidAlloc(void* /*block*/, BOOL /*spied*/, int allocated) override {
    return allocated;
  }
  void STDMETHODCALLTYPE PreHeapMinimize() override {}
  void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

class ComponentMemoryTest : public ::testing::Test {
 protected:
  using Mode = FailingMemory::Mode;

  /// @param act takes a FailingMemory's number and mode, and returns the allocations
  void walk(int samples, const FunctionRef<long(long, Mode)>& act) {
    act(FailingMemory::kNever, Mode::once);  // what is made once is not counted
    const Holdings before;
    const auto windows = windowsOfThread();
    const long locks = win32::ModuleLock::count();
    const long runs = walkAllocations(samples, [&](long number, Mode mode) {
      const long blocks = FailingMemory::blocks();
      const long allocations = act(number, mode);
      EXPECT_EQ(FailingMemory::blocks(), blocks) << "memory is still held";
      EXPECT_EQ(windowsOfThread(), windows) << "windows are left";
      EXPECT_EQ(win32::ModuleLock::count(), locks);
      EXPECT_TRUE(IsWindowEnabled(program.owner()));
      return allocations;
    });
    EXPECT_GE(runs, 2);
    const Holdings after;
    EXPECT_FALSE(before.leaked(after, static_cast<DWORD>(std::max(runs, 10L))))
        << before << ", then " << after;
  }

  /// Returns what ShowOptions did.
  HRESULT show(int tab, Visitor::End end, long number, Mode mode, long& allocations) {
    const auto options = ComponentProgram::create();
    program.giveObjects(*options.get());
    const Visitor visitor(tab, end);
    const FailingMemory memory(number, mode);
    VARIANT_BOOL shown = VARIANT_FALSE;
    const HRESULT result = options->ShowOptions(&shown);
    allocations = memory.allocations();
    EXPECT_EQ(shown, SUCCEEDED(result) ? VARIANT_TRUE : VARIANT_FALSE);
    return result;
  }

  void walkDialogs(int samples, int tab, Visitor::End end) {
    walk(samples, [&](long number, Mode mode) {
      long allocations = 0;
      const bool isDone = ComponentProgram::isDone(show(tab, end, number, mode, allocations));
      const std::size_t commits = program.host.callsStarting("commit").size();
      EXPECT_EQ(program.host.stored.empty(), commits == 0) << "half a save is stored";
      if (number == FailingMemory::kNever) {
        EXPECT_TRUE(isDone);
        EXPECT_EQ(commits, end == Visitor::End::save ? 1U : 0U);
      }
      program.forget();
      savesAgain();
      return allocations;
    });
  }

  ComponentProgram program;

 private:
  void savesAgain() {
    long ignored = 0;
    EXPECT_EQ(show(0, Visitor::End::save, FailingMemory::kNever, Mode::once, ignored), S_OK);
    EXPECT_EQ(program.host.callsStarting("commit").size(), 1U);
    EXPECT_EQ(program.host.sent.size(), 1U);
    EXPECT_EQ(program.host.value(options::CompanyName), u"x");
    program.forget();
  }
};

class ComponentEntriesTest : public ComponentMemoryTest {
 protected:
  void walkEntries() {
    walk(300, [&](long number, Mode mode) {
      long allocations = 0;
      {
        const FailingMemory memory(number, mode);
        use();
        allocations = memory.allocations();
      }
      program.forget();
      return allocations;
    });
    EXPECT_EQ(listener_->references(), 1U);
  }

 private:
  void use() {
    const auto isDone = &ComponentProgram::isDone;
    const auto options = ComponentProgram::create();
    if (!options) return;
    program.giveObjects(*options.get());
    isDone(options->put_LVFileExtension(extension_.get()));
    wchar_t member[] = L"LVFileExtension";
    wchar_t* names = member;
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(options->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    VARIANT argument = text_.get();
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&argument, &newValue, 1, 1};
    EXCEPINFO exception{};
    const HRESULT invoked = options->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                            &parameters, nullptr, &exception, nullptr);
    isDone(invoked == DISP_E_EXCEPTION ? exception.scode : invoked);
    for (BSTR text : {exception.bstrSource, exception.bstrDescription, exception.bstrHelpFile}) {
      SysFreeString(text);
    }
    const auto point = connectionPoint(*options.get());
    DWORD cookie = 0;
    if (isDone(point->Advise(listener_.get(), &cookie))) {
      ComPtr<IEnumConnections> connections;
      isDone(point->EnumConnections(connections.out()));
      EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
    ComPtr<IEnumConnectionPoints> points;
    isDone(options.query<IConnectionPointContainer>()->EnumConnectionPoints(points.out()));
    options->putref_AppObject(nullptr);
    VARIANT_BOOL shown = VARIANT_TRUE;
    const HRESULT refused = options->ShowOptions(&shown);
    EXPECT_TRUE(refused == error::objectNotSet || refused == E_OUTOFMEMORY) << std::hex << refused;
    EXPECT_EQ(shown, VARIANT_FALSE);
    SetErrorInfo(0, nullptr);
  }

  const win32::Bstr extension_{u".an extension that is longer than most"};
  const win32::Variant text_{u".another extension that is longer than most"};
  const ComPtr<EventListener> listener_ = EventListener::make([](LONG&) { return S_OK; });
};

TEST_F(ComponentEntriesTest, SayThatMemoryRanOut) { walkEntries(); }

// Only what needs no type library: the platform under test goes on with half of one.
TEST_F(ComponentMemoryTest, OfAutomationTextsAndErrors) {
  const TaskMemory taskMemory;
  const auto options = ComponentProgram::create();
  const auto record = ComPtr<_clsRandomPrice>::adopt(new automation::RandomPriceRecord);
  const win32::Bstr caption(u"per kilogram or part of it");
  record->put_msUOMUnitCaption(caption.get());
  program.giveObjects(*options.get());
  options->putref_AppObject(nullptr);
  int refused = 0;
  walk(100, [&](long number, Mode mode) {
    const FailingMemory memory(number, mode);
    win32::Bstr given;
    if (!ComponentProgram::isDone(record->get_msUOMUnitCaption(given.out()))) ++refused;
    VARIANT_BOOL shown = VARIANT_TRUE;
    const HRESULT result = options->ShowOptions(&shown);
    EXPECT_TRUE(result == error::objectNotSet || result == E_OUTOFMEMORY) << std::hex << result;
    SetErrorInfo(0, nullptr);
    return memory.allocations();
  });
  EXPECT_GT(refused, 0);
}

TEST_F(ComponentMemoryTest, WhileADialogOpensAndCloses) { walkDialogs(2, 0, Visitor::End::close); }

TEST_F(ComponentMemoryTest, WhileATabIsVisited) { walkDialogs(2, 10, Visitor::End::close); }

TEST_F(ComponentMemoryTest, WhileADialogSaves) { walkDialogs(2, 0, Visitor::End::save); }

}  // namespace
}  // namespace tillora::testing
