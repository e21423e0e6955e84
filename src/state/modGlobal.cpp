#include "state/modGlobal.h"

namespace cb {

ModGlobal& Globals() {
  static ModGlobal globals;
  return globals;
}

}  // namespace cb
