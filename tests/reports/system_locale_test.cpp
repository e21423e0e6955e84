// The locale of the pages, in the files' code page.

#include <gtest/gtest.h>

#include <QDateTime>
#include <QLocale>

#include "qt/SystemLocale.h"

namespace cb {
namespace {

struct LocaleRow {
  const char* name;
  const char* separator;
  const char* point;
  const char* currency;
  const char* date;  // of 1 February 2003, 16:05:06
};

TEST(SystemLocale, SeparatorPointCurrencyAndDateComeFromTheLocale) {
  const LocaleRow rows[] = {
      {"en_US", ",", ".", "$", "2/1/03 4:05:06 PM"},
      {"de_DE", ".", ",", "\x80", "01.02.03 16:05:06"},
      {"fr_FR", "\xA0", ",", "\x80", "01/02/2003 16:05:06"},  // a narrow blank groups digits: the no-break space
  };
  const QDateTime when(QDate(2003, 2, 1), QTime(16, 5, 6));
  for (const auto& row : rows) {
    const QLocale locale(row.name);
    const ReportLocale l = ReportLocaleOf(locale);
    EXPECT_EQ(l.thousandsSeparator, row.separator) << row.name;
    EXPECT_EQ(l.decimalPoint, row.point) << row.name;
    EXPECT_EQ(l.currencySymbol, row.currency) << row.name;
    EXPECT_EQ(GeneralDateFileText(locale, when), row.date) << row.name;
  }
}

}  // namespace
}  // namespace cb
