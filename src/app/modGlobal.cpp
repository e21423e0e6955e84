#include "app/modGlobal.h"

namespace cb {

ModGlobal& Globals() {
  static ModGlobal globals;
  return globals;
}

}  // namespace cb
