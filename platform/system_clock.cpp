#include "platform/system_clock.h"

#include <windows.h>

#include <oleauto.h>

namespace tillora::win32 {

DateTime SystemClock::now() {
  SYSTEMTIME local;
  GetLocalTime(&local);
  local.wMilliseconds = 0;
  DateTime time;
  SystemTimeToVariantTime(&local, &time.days);
  return time;
}

}  // namespace tillora::win32
