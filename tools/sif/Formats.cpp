// SPDX-License-Identifier: GPL-3.0-or-later
#include "Formats.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "Csv.h"
#include "base/Bytes16.h"
#include "base/Text.h"
#include "model/SlideRecord.h"
#include "storage/Scramble.h"

namespace cb::sif {
namespace {

using pack::Inventory;
using pack::JsonKey;
using pack::SifDocument;
using pack::SlideRow;

constexpr std::string_view kColumnNames = "Spare, PictureFile, SlideText, Category, Location, Make, Model, Serial, Value";

std::string Quoted(std::string_view s) {
  std::string out = "\"";
  for (char c : s) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", static_cast<unsigned>(c));
          out += buf;
        } else {
          out += c;
        }
    }
  }
  return out + "\"";
}

// The settings of the JSON object besides "template" and "slides".
struct JsonSetting {
  std::string_view key;
  std::string Inventory::*member;
};

constexpr std::array<JsonSetting, 3> kJsonSettings{{
    {"backgroundImage", &Inventory::BackgroundImage},
    {"wallpaper", &Inventory::Wallpaper},
    {"reportFont", &Inventory::ReportFont},
}};

QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// A text value; null and a missing key are empty.
bool TextOf(const QJsonValue& v, std::string& out) {
  if (v.isNull() || v.isUndefined()) {
    out.clear();
    return true;
  }
  if (!v.isString()) return false;
  out = v.toString().toStdString();
  return true;
}

bool TemplateOf(const QJsonValue& v, std::optional<std::int32_t>& out) {
  out.reset();
  if (v.isNull() || v.isUndefined()) return true;
  if (!v.isDouble()) return false;
  const double d = v.toDouble();
  if (d != std::floor(d) || d < std::numeric_limits<std::int32_t>::min() ||
      d > std::numeric_limits<std::int32_t>::max())
    return false;
  out = static_cast<std::int32_t>(d);
  return true;
}

bool IsSlideKey(const std::string& key) {
  for (std::size_t c = 0; c < kFields.size(); ++c)
    if (key == JsonKey(c)) return true;
  return false;
}

bool IsTopKey(const std::string& key) {
  if (key == "template" || key == "slides") return true;
  for (const auto& s : kJsonSettings)
    if (key == s.key) return true;
  return false;
}

// The first key of `o` that `known` refuses, or nothing.
template <typename Known>
std::optional<std::string> UnknownKey(const QJsonObject& o, Known known) {
  for (auto it = o.begin(); it != o.end(); ++it)
    if (!known(it.key().toStdString())) return it.key().toStdString();
  return std::nullopt;
}

bool ReadSlide(const QJsonValue& v, const std::string& row, SlideRow& slide, std::string& message) {
  if (!v.isObject()) {
    message = row + ": not an object";
    return false;
  }
  const QJsonObject o = v.toObject();
  if (const auto key = UnknownKey(o, IsSlideKey)) {
    message = row + ": unknown key \"" + *key + "\"";
    return false;
  }
  for (std::size_t c = 0; c < kFields.size(); ++c)
    if (!TextOf(o.value(Q(JsonKey(c))), slide[c])) {
      message = row + ", " + std::string(kFields[c].name) + ": not a text";
      return false;
    }
  return true;
}

}  // namespace

void AppendCsvHeader(std::string& out) {
  std::array<std::string_view, kFields.size()> row;
  for (std::size_t c = 0; c < row.size(); ++c) row[c] = kFields[c].name;
  AppendCsvRecord(out, row);
}

// Straight from the record: no text of its own for any field.
void AppendCsvSlide(std::string& out, const SlideRecord& slide) {
  std::array<std::string_view, kFields.size()> row;
  for (std::size_t c = 0; c < row.size(); ++c) row[c] = RTrimView(slide.View(kFields[c].field));
  AppendCsvRecord(out, row);
}

namespace {

// The most room one slide's row takes while it is written: each field and
// its comma, the last one's taken by CR LF.
constexpr std::size_t kCsvSlideRoom = [] {
  std::size_t room = 1;
  for (const FieldLayout& f : kFields) room += CsvFieldRoom(f.width) + 1;
  return room;
}();

// One field straight from its stored bytes: the usual plain text goes out as
// it is unscrambled, checked in the same runs; the rest takes PutCsvFieldRuns.
// Inlined in the row, each width is a constant and the runs stay in registers.
template <std::size_t Width>
[[gnu::always_inline]] inline char* PutCsvStoredField(char* out, const char* stored) {
  using namespace bytes16;
  const StoredField<Width> field(stored);
  if (!field.Plain()) {
    char text[Width];
    return PutCsvField(out, RTrimView(std::string_view(text, UnscrambleTo(stored, Width, text))));
  }
  std::size_t size = field.size();
  unsigned mayChange = 0;
#pragma GCC unroll 8
  for (std::size_t k = 0; k < field.kRuns; ++k) {
    if (k * kSize >= size) break;
    Store(out + k * kSize, field.Run(k));
    mayChange |= CsvMayChange(field.Run(k)) & field.TextBits(k);
  }
  // The text is read again from the field, not from the runs just written.
  const StoredText text = field.Text();
  if (mayChange == 0 && (size == 0 || (text[0] != ' ' && text[size - 1] != ' '))) return out + size;
  while (size > 0 && text[size - 1] == ' ') --size;
  return PutCsvFieldRuns(out, size, text);
}

template <std::size_t... I>
char* PutCsvStoredRow(char* out, const char* stored, std::index_sequence<I...>) {
  ((out = PutCsvStoredField<kFields[I].width>(out, stored + kFields[I].offset), *out++ = ','), ...);
  out[-1] = '\r';
  *out++ = '\n';
  return out;
}

}  // namespace

void CsvRows::Reserve(std::size_t count) {
  if (capacity_ - size_ >= count * kCsvSlideRoom) return;
  capacity_ = std::max(2 * capacity_, size_ + count * kCsvSlideRoom);
  auto grown = std::make_unique_for_overwrite<char[]>(capacity_);
  std::copy_n(buffer_.get(), size_, grown.get());
  buffer_ = std::move(grown);
}

void CsvRows::Append(const char* stored, std::size_t count) {
  Reserve(count);
  char* out = buffer_.get() + size_;
  for (std::size_t i = 0; i < count; ++i) out = PutCsvStoredRow(out, stored + i * kRecordLength, FieldPlaces{});
  size_ = static_cast<std::size_t>(out - buffer_.get());
}

bool ImportCsv(std::string_view text, Inventory& inv, std::string& message) {
  std::vector<CsvRow> rows;
  if (!ParseCsv(text, rows, message)) return false;
  if (rows.empty()) {
    message = "no header row naming the columns";
    return false;
  }
  // For each column, the field it fills.
  std::vector<std::size_t> columns;
  for (const auto& name : rows[0]) {
    std::size_t f = 0;
    while (f < kFields.size() && !SameName(name, kFields[f].name)) ++f;
    if (f == kFields.size()) {
      message = "column \"" + name + "\" is none of " + std::string(kColumnNames);
      return false;
    }
    if (std::find(columns.begin(), columns.end(), f) != columns.end()) {
      message = "column \"" + name + "\" appears twice";
      return false;
    }
    columns.push_back(f);
  }
  Inventory out;
  for (std::size_t r = 1; r < rows.size(); ++r) {
    if (rows[r].size() != columns.size()) {
      message = "row " + std::to_string(r) + ": " + std::to_string(rows[r].size()) + " cells, the header has " +
                std::to_string(columns.size());
      return false;
    }
    SlideRow slide;
    for (std::size_t c = 0; c < columns.size(); ++c) slide[columns[c]] = std::move(rows[r][c]);
    out.Slides.push_back(std::move(slide));
  }
  inv = std::move(out);
  return true;
}

std::string ExportJson(const Inventory& inv) {
  std::string out = "{\n  \"template\": ";
  out += inv.SlideTemplate ? std::to_string(*inv.SlideTemplate) : "null";
  for (const auto& s : kJsonSettings) out += ",\n  " + Quoted(s.key) + ": " + Quoted(inv.*s.member);
  out += ",\n  \"slides\": [";
  for (std::size_t i = 0; i < inv.Slides.size(); ++i) {
    out += i ? ",\n    {" : "\n    {";
    for (std::size_t c = 0; c < kFields.size(); ++c)
      out += (c ? ",\n      " : "\n      ") + Quoted(JsonKey(c)) + ": " + Quoted(inv.Slides[i][c]);
    out += "\n    }";
  }
  out += inv.Slides.empty() ? "]\n}\n" : "\n  ]\n}\n";
  return out;
}

bool ImportJson(std::string_view text, Inventory& inv, std::string& message) {
  QJsonParseError error;
  const auto doc = QJsonDocument::fromJson(QByteArray(text.data(), static_cast<qsizetype>(text.size())), &error);
  if (doc.isNull()) {
    message = "not JSON: " + error.errorString().toStdString() + " at offset " + std::to_string(error.offset);
    return false;
  }
  if (!doc.isObject()) {
    message = "the JSON is no object";
    return false;
  }
  const QJsonObject root = doc.object();
  if (const auto key = UnknownKey(root, IsTopKey)) {
    message = "unknown key \"" + *key + "\"";
    return false;
  }
  Inventory out;
  if (!TemplateOf(root.value("template"), out.SlideTemplate)) {
    message = "template: not a whole number";
    return false;
  }
  for (const auto& s : kJsonSettings)
    if (!TextOf(root.value(Q(s.key)), out.*s.member)) {
      message = std::string(s.key) + ": not a text";
      return false;
    }
  const QJsonValue slides = root.value("slides");
  if (!slides.isArray() && !slides.isUndefined() && !slides.isNull()) {
    message = "slides: not an array";
    return false;
  }
  const QJsonArray array = slides.toArray();
  out.Slides.resize(static_cast<std::size_t>(array.size()));
  for (qsizetype i = 0; i < array.size(); ++i)
    if (!ReadSlide(array[i], "row " + std::to_string(i + 1), out.Slides[static_cast<std::size_t>(i)], message))
      return false;
  inv = std::move(out);
  return true;
}

}  // namespace cb::sif
