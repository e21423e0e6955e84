// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Shared by the companion's tests: a scratch directory, files the program's
// own code writes, and the companion run in-process or as a process.

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <QProcess>
#include <QStringList>

#include "Commands.h"
#include "base/Cp1252.h"
#include "state/UIMainController.h"
#include "state/modGlobal.h"
#include "storage/DataAccess.h"
#include "storage/Scramble.h"
#include "support/TempDir.h"

namespace cb::sif::testing {

namespace fs = std::filesystem;

using Scratch = cb::testing::TempDir;
using cb::testing::ReadFile;
using cb::testing::WriteFile;

// The names in `dir`, in no particular order.
inline std::vector<std::string> Names(const Scratch& dir) {
  std::vector<std::string> names;
  for (const auto& e : fs::directory_iterator(dir.str())) names.push_back(e.path().filename().string());
  return names;
}

// One slide as the program makes it: picture and text assigned when added,
// the rest typed in the editor; a field given as "" is never assigned.
struct SlideText {
  std::string picture{}, text{}, category{}, location{}, make{}, model{}, serial{}, value{};
};

// The settings a file carries in its header.
struct Header {
  std::int32_t slideTemplate = 1;
  std::string background{}, wallpaper{}, font{};
};

// The test's UTF-8 text as the program holds it, in Windows-1252.
inline std::string Cp(const std::string& utf8) { return Utf8ToCp1252(utf8).value(); }

// Writes `path`, its folder made, as the program does: File New, then each
// slide added and edited with a save after each step. Returns the bytes on disk.
inline std::string WriteAsProgram(const std::string& path, const Header& h, const std::vector<SlideText>& slides) {
  fs::create_directories(fs::path(path).parent_path());
  ModGlobal g;
  MemorySettings settings;
  UIMainController mc(fs::path(path).parent_path().string(), settings, g);
  mc.SlideInformationFilePath(path);
  mc.SlideTemplate(h.slideTemplate);
  mc.BackgroundImage(Cp(h.background));
  mc.Wallpaper(Cp(h.wallpaper));
  mc.ReportFont(Cp(h.font));
  g.Slides = SlideArray(1);
  ErrorArray errors;
  EXPECT_TRUE(Report(mc.SaveSettings(), errors)) << errors[2];
  for (const auto& s : slides) {
    SlideRecord r;
    r.Set(Field::PictureFile, Cp(s.picture));
    r.Set(Field::SlideText, Cp(s.text));
    g.Slides.push_back(r);
    EXPECT_TRUE(Report(mc.SaveSettings(), errors)) << errors[2];
    const std::pair<Field, const std::string*> edits[] = {
        {Field::Category, &s.category}, {Field::Location, &s.location}, {Field::Make, &s.make},
        {Field::Model, &s.model},       {Field::Serial, &s.serial},     {Field::Value, &s.value}};
    for (const auto& [f, v] : edits)
      if (!v->empty()) g.Slides.back().Set(f, Cp(*v));
    EXPECT_TRUE(Report(mc.SaveSettings(), errors)) << errors[2];
  }
  return ReadFile(path);
}

// `bytes` with the header's count and template fields replaced.
inline std::string WithHeader(std::string bytes, const std::string& count, const std::string& tmpl) {
  SlideRecord h;
  std::copy_n(bytes.begin(), kRecordLength, h.bytes().begin());
  h.Set(Field::Serial, ScrambleField(count));
  h.Set(Field::Spare, ScrambleField(tmpl));
  std::copy_n(h.bytes().begin(), kRecordLength, bytes.begin());
  return bytes;
}

struct Outcome {
  int status = -1;
  std::string out, err;
};

// The companion in this process; `input` is its standard input.
inline Outcome RunInProcess(const std::vector<std::string>& args, const std::string& input = "") {
  QStringList list{"chattelbook-sif"};
  for (const auto& a : args) list << QString::fromStdString(a);
  std::ostringstream out, err;
  std::istringstream in(input);
  return {RunSif(list, out, err, in), out.str(), err.str()};  // a braced list runs left to right
}

// `program`, by default the built companion, as its own process with nothing
// on its standard input; stdout is kept apart from stderr, or sent to `outTo`.
inline Outcome RunProcess(const std::vector<std::string>& args, const std::string& outTo = "",
                          const char* program = SIF_BINARY) {
  QStringList list;
  for (const auto& a : args) list << QString::fromStdString(a);
  QProcess p;
  p.setStandardInputFile(QProcess::nullDevice());
  if (!outTo.empty()) p.setStandardOutputFile(QString::fromStdString(outTo));
  p.start(program, list);
  p.waitForFinished(-1);
  const bool exited = p.error() != QProcess::FailedToStart && p.exitStatus() == QProcess::NormalExit;
  return {exited ? p.exitCode() : -1, p.readAllStandardOutput().toStdString(), p.readAllStandardError().toStdString()};
}

}  // namespace cb::sif::testing
