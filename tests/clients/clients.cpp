// The clients that come with the component, with a person at the dialog.
#include <stdexcept>
#include <string>

#include "tests/clients/client_fixture.h"

namespace tillora::testing {
namespace {

class ClientsTest : public ClientTest {};

TEST_F(ClientsTest, AScriptStoresWhatIsTyped) {
  script(L"clients/vbscript/shop.vbs", shop());
  drive(
      L"wait Options 60 -- key ALT+M CTRL+A -- type \"Corner Shop\" -- key ALT+O "
      L"-- gone Options 60");
  finish();
  expectPrinted("CompanyName = \"Corner Shop\"");
  expectPrinted("data file changed: False");
  expectPrinted("done");

  script(L"clients/vbscript/shop.vbs", shop());
  drive(L"wait Options 60 -- key ALT+M CTRL+A -- type \"Not this\" -- key ESC -- gone Options 60");
  finish();
  expectPrinted("CompanyName = \"Corner Shop\"");
}

TEST_F(ClientsTest, ClassesOfAScriptAreTheHost) {
  script(L"clients/vbscript/host_in_script.vbs", L"");
  drive(
      L"wait Options 60 -- key ALT+M CTRL+A -- type \"Shop In A Script\" -- key ALT+A "
      L"-- key ALT+M CTRL+A -- type Again -- key ALT+O -- gone Options 60");
  finish();
  expectPrinted("stored: CompanyName=Shop In A Script");
  expectPrinted("stored: CompanyName=Again");
  expectPrinted("message sent: True", 2);
  expectPrinted("returned: True");
}

TEST_F(ClientsTest, TablesAndSettingsOfAScriptAreReadAndWritten) {
  script(L"clients/vbscript/host_in_script.vbs", L"4");
  drive(
      L"wait Options 60 -- press Options \"Rounding &Item\" -- wait \"Rounding Item\" 60 "
      L"-- key ENTER -- gone \"Rounding Item\" 60 -- key ALT+O -- gone Options 60");
  finish();
  expectPrinted("rounding item: Charges:Cash Rounding");
  expectPrinted("settings: 46");
  expectPrinted(
      "format: Prefix=2 FormatID=3 OptionBits=1 UOMUnitCaption=kg UOMPriceUnitCaption=/kg "
      "Inactive=True");
  expectPrinted("grade: GradeNumber=1 Product=Fuel:Diesel Caption=Diesel");
  expectPrinted(
      "web site: Description=Neil's orders URL=https://orders.example/?of=O'Neil Inactive=False");
}

TEST_F(ClientsTest, AScriptStoresAPassword) {
  const std::wstring window = L"\"Password to start Tillora Administrator\"";
  script(L"clients/vbscript/host_in_script.vbs", L"11");
  drive(L"wait Options 60 -- key SPACE TAB SPACE -- wait " + window +
        L" 60 -- type Secret -- key TAB -- type Secret -- key ENTER -- gone " + window +
        L" 60 -- wait Options 60 -- key ALT+O -- gone Options 60");
  finish();
  expectPrinted("password: secret");
}

TEST_F(ClientsTest, ARowOfAScriptIsDeleted) {
  script(L"clients/vbscript/host_in_script.vbs", L"10");
  drive(
      L"wait Options 60 -- press Options D&elete -- wait \"Delete web site\" 60 -- key ALT+Y "
      L"-- gone \"Delete web site\" 60 -- wait Options 60 -- key ALT+O -- gone Options 60");
  finish();
  expectPrinted("returned: True");
  expectPrinted(
      "web site: Description=Neil's orders URL=https://orders.example/?of=O'Neil Inactive=False",
      0);
}

TEST_F(ClientsTest, JScriptReadsTheResult) {
  script(L"clients/jscript/shop.js", shop() + L" 3");
  drive(L"wait Options 60 -- close Options -- gone Options 60");
  finish();
  expectPrinted("data file changed: false");
}

TEST_F(ClientsTest, AScriptGetsErrorsForWrongObjectsAndFailures) {
  script(L"tests/scripts/bad_inputs.vbs", shop());
  drive(
      L"wait Options 60 -- key ALT+M CTRL+A -- type \"Corner Shop\" -- key ALT+O "
      L"-- gone Options 60");
  finish();
  for (const char* line :
       {"nothing set: 5B TilloraOptions.Options ",
        "wrong object: 80020005 TilloraOptions.Options DBJetObject must be a JetDatabase; the "
        "object given has no member OptionsRecord.",
        "tab 99: 8B10 TilloraOptions.Options ", "failing object set: 0  ",
        "failing script class: 80040201  ",
        "failing host: D5C TilloraHost.OptionsRecord The shop database was closed.",
        "shown again: 190 TilloraOptions.Options ", "returned: True", "after all: 0  ", "done"}) {
    expectPrinted(line);
  }
}

TEST_F(ClientsTest, CppHearsEveryApply) {
  program(L"cpp_client.exe", shop());
  drive(
      L"wait Options 60 -- key ALT+M CTRL+A -- type One -- key ALT+A "
      L"-- key ALT+M CTRL+A -- type Two -- key ALT+A -- key ESC -- gone Options 60");
  finish();
  expectPrinted("OptionsChanged 0", 2);
  expectPrinted("data file changed: no");
}

TEST_F(ClientsTest, CppHearsWhatChanged) {
  program(L"cpp_client.exe", shop() + L" 4");
  drive(L"wait Options 60 -- key ALT+N DOWN ALT+O -- gone Options 60");
  finish();
  expectPrinted("OptionsChanged 512 Rounding");
}

TEST_F(ClientsTest, LateBoundCppReadsResultAndFailure) {
  program(L"cpp_late_client.exe", shop() + L" 4");
  drive(
      L"wait Options 60 -- press Options \"Rounding &Item\" -- wait \"Rounding Item\" 60 "
      L"-- key ESC -- gone \"Rounding Item\" 60 -- close Options -- gone Options 60");
  finish();
  expectPrinted("returned: True");
  expectPrinted("data file changed: no");

  program(L"cpp_late_client.exe", shop() + L" 99");
  finish(2);
  expectPrinted("failed: 0x800A8B10 TilloraOptions.Options: Index out of bounds");
}

TEST_F(ClientsTest, NobodyWaitsForTheDialogOfAClientThatHasEnded) {
  program(L"cpp_late_client.exe", shop() + L" 99");
  try {
    drive(L"wait Options 60");
    FAIL() << "the dialog was shown";
  } catch (const std::runtime_error& failure) {
    EXPECT_NE(std::string(failure.what()).find("the program has ended"), std::string::npos)
        << failure.what();
  }
}

}  // namespace
}  // namespace tillora::testing
