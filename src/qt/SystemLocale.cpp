// SPDX-License-Identifier: GPL-3.0-or-later
#include "qt/SystemLocale.h"

#include <QDateTime>
#include <QLocale>

#include "base/Cp1252.h"

namespace cb {
namespace {

std::string FileText(const QString& q) { return Utf8ToCp1252Lossy(q.toStdString()); }

// Newer locale data puts a narrow no-break space before "AM"/"PM", which
// Windows-1252 lacks; any blank of the date becomes a plain one.
QString PlainBlanks(QString q) {
  for (QChar& c : q)
    if (c.isSpace()) c = u' ';
  return q;
}

// Locales that group digits with a thin or narrow blank get the no-break
// space, the nearest that Windows-1252 holds.
std::string SeparatorText(const QString& q) {
  if (auto t = Utf8ToCp1252(q.toStdString())) return *t;
  return q.size() == 1 && q[0].isSpace() ? std::string("\xA0") : FileText(q);
}

}  // namespace

QString GeneralDateText(const QLocale& locale, const QDateTime& when) {
  QString time = locale.timeFormat(QLocale::LongFormat);
  time.remove('t');
  return locale.toString(when.date(), QLocale::ShortFormat) + " " + locale.toString(when.time(), time.trimmed());
}

std::string GeneralDateFileText(const QLocale& locale, const QDateTime& when) {
  return FileText(PlainBlanks(GeneralDateText(locale, when)));
}

ReportLocale ReportLocaleOf(const QLocale& locale) {
  ReportLocale l;
  l.thousandsSeparator = SeparatorText(locale.groupSeparator());
  l.decimalPoint = FileText(locale.decimalPoint());
  l.currencySymbol = FileText(locale.currencySymbol());
  l.generalDate = [locale] { return GeneralDateFileText(locale, QDateTime::currentDateTime()); };
  return l;
}

ReportLocale SystemReportLocale() { return ReportLocaleOf(QLocale::system()); }

}  // namespace cb
