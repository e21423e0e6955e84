// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report pages' share of the user's locale: thousands separator, decimal
// point, currency symbol and the general date, in the files' code page. The
// program and chattelbook-sif both take them from here, on Qt Core alone.

#include <QString>

#include "base/NumberRules.h"

class QDateTime;
class QLocale;

namespace cb {

// The conventions of `locale`; its generalDate reads the clock at each call.
ReportLocale ReportLocaleOf(const QLocale& locale);

// ReportLocaleOf(QLocale::system()).
ReportLocale SystemReportLocale();

// `when` in the general date format of `locale`: the short date, a blank,
// then the long time without its zone.
QString GeneralDateText(const QLocale& locale, const QDateTime& when);

// GeneralDateText in the files' code page, every blank a plain space.
std::string GeneralDateFileText(const QLocale& locale, const QDateTime& when);

}  // namespace cb
