// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The summary report computed the slow, literal way: a search per slide for
// the key lists, three nested loops (groups x entries x slides) for the
// sums, and CountRowEntries asked again at every row of the page. The fast
// code must agree with it byte for byte; the benchmark uses it as its peer.

#include <cmath>
#include <string>
#include <vector>

#include "base/NumberRules.h"
#include "base/Text.h"
#include "model/Categories.h"
#include "model/SlideRecord.h"
#include "reports/ValueMatrix.h"

namespace cb::literal {

// A search of the list for each slide, as the combo boxes' lists were made.
inline std::int32_t Keys(const SlideArray& slides, Field field, KeyList& list) {
  if (list.empty()) list.emplace_back();
  std::int32_t count = 0;
  bool found = false;
  for (std::size_t i = 1; i < slides.size(); ++i) {
    const std::string t = Trim(slides[i].Get(field));
    for (std::size_t j = 1; j < list.size(); ++j) {
      if (Trim(list[j]) == t || t.empty()) {
        found = true;
        break;
      }
    }
    if (!found && !t.empty()) {
      list.push_back(t);
      ++count;
    } else {
      found = false;
    }
  }
  return count;
}

// Groups, then entries, then every slide: the running sum kept as text.
// False on an overflow.
inline bool Sums(const SlideArray& slides, Field groupField, Field entryField, const KeyList& groups,
                 const KeyList& entries, ValueMatrix& m) {
  for (std::size_t g = 1; g < groups.size(); ++g)
    for (std::size_t e = 1; e < entries.size(); ++e)
      for (std::size_t i = 1; i < slides.size(); ++i) {
        if (Trim(slides[i].Get(groupField)) == groups[g] && Trim(slides[i].Get(entryField)) == entries[e]) {
          const auto gi = static_cast<std::int32_t>(g), ei = static_cast<std::int32_t>(e);
          const double sum = LeadingNumber(Trim(slides[i].Get(Field::Value))) + LeadingNumber(m.Cell(gi, ei));
          if (!std::isfinite(sum)) return false;
          m.SetCell(gi, ei, NumberText(sum));
        }
      }
  return true;
}

// The rows of the groups of a summary page, step by step.
inline std::string Rows(const ValueMatrix& m, const KeyList& groups, const KeyList& entries, const std::string& f,
                        const std::string& path, const ReportLocale& locale) {
  std::string p;
  double groupTotal = 0, grandTotal = 0;
  std::int32_t rowCounter = 0;
  const std::string amountOpen = "<td width='25%'><p align='right'><font size='2' face='" + f + "'>";
  for (std::int32_t g = 1; g < static_cast<std::int32_t>(groups.size()); ++g) {
    const std::string& k = groups[static_cast<std::size_t>(g)];
    ++rowCounter;
    p += "<tr>";
    p += "<td width='16%'><font size='2' face='" + f + "'><a href='file:///" + path + "?" + k + "'>" + k + "</a></td>";
    for (std::int32_t e = 1; e <= m.EntryBound(); ++e) {
      const double v = LeadingNumber(m.Cell(g, e));
      if (v == 0) continue;
      if (std::isfinite(groupTotal + v)) groupTotal += v;
      const std::string entry =
          "<td width='25%'><font size='2' face='" + f + "'>" + entries[static_cast<std::size_t>(e)] + "</td>";
      if (rowCounter == 1) {
        p += entry;
        if (CountRowEntries(m, g) > 1)
          p += amountOpen + AmountText(v, locale) + "</td>" + amountOpen + "</td>";
        else
          p += amountOpen + "</td>" + amountOpen + AmountText(v, locale) + "</td>";
        p += "</tr>";
      } else {
        p += "<td width='16%'><font size='2' face='" + f + "'></td>";
        p += entry;
        if (rowCounter == CountRowEntries(m, g))
          p += amountOpen + AmountText(v, locale) + "</td>" + amountOpen + AmountText(groupTotal, locale) + "</td>";
        else
          p += amountOpen + AmountText(v, locale) + "</td>" + amountOpen + "</td>";
        p += "</tr>";
      }
      ++rowCounter;
    }
    if (std::isfinite(grandTotal + groupTotal)) grandTotal += groupTotal;
    groupTotal = 0;
    rowCounter = 0;
  }
  return p;
}

}  // namespace cb::literal
