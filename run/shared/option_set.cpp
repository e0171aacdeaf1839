// SPDX-License-Identifier: MIT
#include "run/shared/option_set.h"

namespace lexmill {

OptionSet FullPreset() {
  return {.chkaAndX = true,
          .chkaBanMaoHao = true,
          .chkaBanSenHao = true,
          .chkaLTrimSpace = true,
          .chkaMTab = true,
          .chkaRTrimSpace = true,
          .chkrAndXEER = true,
          .chkrQuanMaoHao = true,
          .chkrQuanSenHao = true,
          .txtLenLimit = 999'999'999,
          .txtrAndXBK1 = uR"((?:\(|\[|\<|\{))",
          .txtrAndXBK2 = uR"((?:\)|\]|\>|\}))",
          .txttAndXBK1 = u"(",
          .txttAndXBK2 = u")",
          .txtSaveRefDB = {}};
}

OptionSet MinimalPreset() {
  return {.txtLenLimit = 50,
          .txtrAndXBK1 = uR"(\()",
          .txtrAndXBK2 = uR"(\))",
          .txttAndXBK1 = u"(",
          .txttAndXBK2 = u")",
          .txtSaveRefDB = {}};
}

OptionSet& RunOptions() {
  static OptionSet options;
  return options;
}

}  // namespace lexmill
