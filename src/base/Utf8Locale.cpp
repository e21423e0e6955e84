// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Utf8Locale.h"

#include <langinfo.h>

#include <clocale>
#include <cstring>

namespace cb {

void UseUtf8CharacterType() {
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0) return;
  std::setlocale(LC_CTYPE, "C.UTF-8");
}

}  // namespace cb
