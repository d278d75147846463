#include <gtest/gtest.h>

#include "component/automation/dispatch_object.h"
#include "component/contract/option_changes.h"
#include "component/contract/option_table.h"
#include "tests/component/automation/server_library.h"

namespace tillora::automation {
namespace {

using testing::Apartment;
using testing::ServerLibrary;
using win32::Bstr;
using win32::ComPtr;

class OptionsServerTest : public ::testing::Test {
 protected:
  Apartment apartment;
  ServerLibrary server;
};

TEST_F(OptionsServerTest, TheRegisteredClassIsCreatedByNameAndById) {
  CLSID id{};
  ASSERT_EQ(CLSIDFromProgID(L"TilloraOptions.Options", &id), S_OK) << "not registered";
  EXPECT_EQ(id, CLSID_Options);
  ASSERT_EQ(CLSIDFromProgID(L"TilloraOptions.Options.1", &id), S_OK);
  EXPECT_EQ(id, CLSID_Options);
  ComPtr<_Options> options;
  ASSERT_EQ(CoCreateInstance(CLSID_Options, nullptr, CLSCTX_INPROC_SERVER, IID__Options,
                             options.outVoid()),
            S_OK);
  VARIANT_BOOL changed = VARIANT_TRUE;
  EXPECT_EQ(options->get_ChangedDataFile(&changed), S_OK);
  EXPECT_EQ(changed, VARIANT_FALSE);
}

TEST_F(OptionsServerTest, TheRecordClassIsNotCreatable) {
  ComPtr<IUnknown> record;
  EXPECT_EQ(server.getClassObject(CLSID_clsRandomPrice, IID_IUnknown, record.outVoid()),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(CoCreateInstance(CLSID_clsRandomPrice, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                             record.outVoid()),
            REGDB_E_CLASSNOTREG);
}

TEST_F(OptionsServerTest, TheFactoryMakesObjectsAndRefusesAggregation) {
  const auto factory = server.factory();
  ASSERT_TRUE(factory);
  const auto outer = factory.query<IUnknown>();
  ComPtr<IUnknown> object;
  EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, object.outVoid()),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IClassFactory, object.outVoid()), E_NOINTERFACE);
  EXPECT_FALSE(object);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, object.outVoid()), S_OK);
}

TEST_F(OptionsServerTest, CanBeUnloadedExactlyWhenNothingIsLeft) {
  EXPECT_EQ(server.canUnloadNow(), S_OK);
  auto factory = server.factory();
  EXPECT_EQ(server.canUnloadNow(), S_FALSE);
  factory->LockServer(TRUE);
  factory.reset();
  EXPECT_EQ(server.canUnloadNow(), S_FALSE);
  server.factory()->LockServer(FALSE);
  EXPECT_EQ(server.canUnloadNow(), S_OK);

  auto options = server.create();
  EXPECT_EQ(server.canUnloadNow(), S_FALSE);
  auto container = options.query<IConnectionPointContainer>();
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.out()), S_OK);
  options.reset();
  container.reset();
  EXPECT_EQ(server.canUnloadNow(), S_FALSE);
  points.reset();
  EXPECT_EQ(server.canUnloadNow(), S_OK);
}

TEST_F(OptionsServerTest, UnknownInterfacesOfTheFactoryAreRefused) {
  ComPtr<IUnknown> object;
  EXPECT_EQ(server.getClassObject(CLSID_Options, IID_IDispatch, object.outVoid()), E_NOINTERFACE);
  EXPECT_EQ(server.getClassObject(CLSID_Options, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(server.canUnloadNow(), S_OK);
}

class OptionsTypeLibraryTest : public ::testing::Test {
 protected:
  OptionsTypeLibraryTest() {
    LoadTypeLibEx(ServerLibrary::path().c_str(), REGKIND_NONE, library.out());
  }

  /// The members of a type, with their ids.
  std::vector<std::pair<Text, MEMBERID>> members(const GUID& type) {
    ComPtr<ITypeInfo> info;
    if (FAILED(library->GetTypeInfoOfGuid(type, info.out()))) return {};
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    std::vector<std::pair<Text, MEMBERID>> found;
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
      FUNCDESC* function = nullptr;
      info->GetFuncDesc(index, &function);
      Bstr name;
      Bstr help;
      info->GetDocumentation(function->memid, name.out(), help.out(), nullptr, nullptr);
      const bool own = (function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0;
      if (own && (found.empty() || found.back().second != function->memid)) {
        EXPECT_FALSE(help.text().empty()) << "no help text for id " << function->memid;
        found.emplace_back(name.text(), function->memid);
      }
      info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    return found;
  }

  Apartment apartment;
  ComPtr<ITypeLib> library;
};

TEST_F(OptionsTypeLibraryTest, HasTheComponentsTypes) {
  ASSERT_TRUE(library);
  Bstr name;
  library->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
  EXPECT_EQ(name.text(), u"TilloraOptions");
  for (const GUID& id : {CLSID_Options, CLSID_clsRandomPrice, IID__Options, IID__clsRandomPrice,
                         DIID___Options, DIID_JetDatabase, DIID_ShopTable}) {
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(id, info.out()), S_OK);
  }
}

TEST_F(OptionsTypeLibraryTest, TheOptionsRecordHasEveryOptionOfTheTable) {
  const auto found = members(DIID_OptionsRecord);
  ASSERT_EQ(found.size(), kOptionTable.size() + 2);
  for (std::size_t index = 0; index < kOptionTable.size(); ++index) {
    EXPECT_EQ(found[index].first, kOptionTable[index].name);
    EXPECT_EQ(found[index].second, kOptionTable[index].dispatchId);
  }
  EXPECT_EQ(found[kOptionTable.size()], (std::pair<Text, MEMBERID>(u"NoValue", 1000)));
  EXPECT_EQ(found[kOptionTable.size() + 1], (std::pair<Text, MEMBERID>(u"Commit", 1001)));
}

TEST_F(OptionsTypeLibraryTest, TheRecordOfRandomPricesHasItsFieldsInOrder) {
  std::vector<Text> names;
  for (const auto& [name, id] : members(IID__clsRandomPrice)) {
    if (id > 0 && id < 0x60000000) names.push_back(name);
  }
  EXPECT_EQ(names, (std::vector<Text>{u"mbInactive", u"mlFormatID", u"mlPrefix", u"mlOptionBits",
                                      u"msUOMUnitCaption", u"msUOMPriceUnitCaption"}));
}

TEST_F(OptionsTypeLibraryTest, ChangesAreNamed) {
  EXPECT_EQ(static_cast<std::int32_t>(::CurrencyMargin),
            static_cast<std::int32_t>(OptionChange::CurrencyMargin));
  ComPtr<ITypeInfo> info;
  wchar_t name[] = L"CurrencyColumns";
  MEMBERID member = MEMBERID_NIL;
  USHORT count = 1;
  ASSERT_EQ(library->FindName(name, 0, info.out(), &member, &count), S_OK);
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace tillora::automation
