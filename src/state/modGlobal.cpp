// SPDX-License-Identifier: GPL-3.0-or-later
#include "state/modGlobal.h"

namespace cb {

ModGlobal& Globals() {
  static ModGlobal globals;
  return globals;
}

}  // namespace cb
