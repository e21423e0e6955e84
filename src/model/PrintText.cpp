// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/PrintText.h"

namespace cb {

std::string PrintErrorText(std::string_view description, std::string_view topic) {
  return "Print command Error: " + std::string(description) +
         "\n\nChattelbook is having problems sending commands\n"
         "directly to the printer.  Try right-clicking on the\n" +
         std::string(topic) + " and selecting the 'Print' option.";
}

}  // namespace cb
