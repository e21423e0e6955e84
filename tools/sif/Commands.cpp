// SPDX-License-Identifier: GPL-3.0-or-later
#include "Commands.h"

#include <QCommandLineParser>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>
#include <sstream>
#include <string_view>
#include <thread>

#include "Backup.h"
#include "Check.h"
#include "Claim.h"
#include "CommandIo.h"
#include "Formats.h"
#include "History.h"
#include "Report.h"
#include "Show.h"
#include "Thumbnail.h"
#include "Where.h"
#include "base/Cp1252.h"
#include "pack/Inventory.h"
#include "pack/SifFile.h"
#include "qt/SystemLocale.h"
#include "storage/HistorySteps.h"
#include "storage/SlideFileLock.h"

namespace cb::sif {
namespace {

using pack::Inventory;
using pack::ReadSif;
using pack::ReadSifStored;
using pack::SifDocument;
using pack::ToInventory;
using pack::WriteSif;

constexpr std::string_view kProgram = "chattelbook-sif";

// The slides from which an export's rows are made by two threads.
constexpr long kSecondThreadFrom = 4096;

constexpr std::string_view kUsage =
    "Usage: chattelbook-sif show FILE.sif [--where QUERY]\n"
    "  or:  chattelbook-sif export FILE.sif [--where QUERY] [--format csv|json] [-o OUT]\n"
    "  or:  chattelbook-sif import IN [--format csv|json] -o FILE.sif [--template 1|2|3] [--force]\n"
    "  or:  chattelbook-sif report FILE.sif --by category|location [--key KEY] [--font NAME] [-o OUT]\n"
    "  or:  chattelbook-sif check FILE.sif [--gallery DIR]\n"
    "  or:  chattelbook-sif claim FILE.sif [--where QUERY] [--gallery DIR] [--by category|location]\n"
    "                            [--page a4|letter] -o CLAIM.pdf\n"
    "  or:  chattelbook-sif backup FILE.sif [--gallery DIR] -o ARCHIVE.tar.gz\n"
    "  or:  chattelbook-sif restore ARCHIVE.tar.gz --to APPDIR [--force]\n"
    "  or:  chattelbook-sif thumbnail FILE.sif OUT.png [--size N]\n"
    "  or:  chattelbook-sif history|undo|redo FILE.sif\n"
    "  or:  chattelbook-sif --help | --version\n"
    "\n"
    "Commands:\n"
    "  show     list the file's settings and slides\n"
    "  export   write the slides as CSV or JSON (with the settings) to OUT or standard output\n"
    "  import   make FILE.sif from CSV or JSON (IN \"-\" is standard input); an existing\n"
    "           FILE.sif is replaced only with --force\n"
    "  report   write the summary report page by category or location, or with --key the\n"
    "           sub-report of KEY, as the program does; the file's report font unless --font\n"
    "  check    list what a load of the file would meet; with --gallery, the pictures\n"
    "           missing from DIR\n"
    "  claim    write a PDF for an insurer: a cover with the grand total, the totals by\n"
    "           category or location, then every slide with its picture and fields\n"
    "  backup   write the file, its pictures, frame and wallpaper and a SHA-256 manifest\n"
    "           into one archive; missing pictures are listed and do not stop it\n"
    "  restore  check every file of a backup, then put it under APPDIR's Files, Gallery,\n"
    "           Background and Wallpaper; existing files are replaced only with --force\n"
    "  thumbnail  write a PNG of at most N x N pixels (256 without --size) for file\n"
    "             managers: the first pictures of the gallery beside the file's\n"
    "             folder, one alone or up to four in a 2 x 2 grid, else the\n"
    "             program's icon\n"
    "  history  list the steps of the undo history kept beside the file, oldest first;\n"
    "           \"*\" marks those undone, which redo makes again\n"
    "  undo     put the file back as it was before its last change\n"
    "  redo     make the last change undone again\n"
    "\n"
    "DIR defaults to the Gallery folder beside the file's own folder.\n"
    "\n"
    "With --where, show, export and claim keep to the slides QUERY finds, as the\n"
    "gallery's find bar does, each under its record number: words all found in\n"
    "some field, \"a phrase\", -word not found, field:word (text, category,\n"
    "location, make, model, serial, file, value), value>500, value<=100,\n"
    "value:100..500; case and accents aside. An empty QUERY finds every slide.\n"
    "\n"
    "Without --format, a file name ending in \".json\" means JSON, any other CSV.\n"
    "Exit status: 0 success, 1 a problem with the data or a file, 2 bad usage.\n";

struct Io {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;
};

std::string S(const QString& q) { return q.toStdString(); }

// The command's streams and usage text as the shared parsing and messages take them.
CommandIo Shared(Io& io) { return {io.out, io.err, kUsage}; }

int Usage(Io& io, const std::string& problem) { return UsageError(Shared(io), problem); }

int Fail(Io& io, const std::string& message) { return DataError(Shared(io), message); }

// Parses the command's own arguments; false when the caller must return `status`.
bool Parse(QCommandLineParser& p, const QStringList& args, Io& io, int& status) {
  return ParseOne(p, args, Shared(io), status);
}

// The format named by --format, or guessed from `file`'s extension.
std::optional<Format> FormatOf(const QCommandLineParser& p, const QString& file) {
  if (!p.isSet("format")) return file.endsWith(".json", Qt::CaseInsensitive) ? Format::Json : Format::Csv;
  const QString f = p.value("format");
  if (f == "csv") return Format::Csv;
  if (f == "json") return Format::Json;
  return std::nullopt;
}

// The -o file, or standard output without one. The file is made at the
// first write, so a command that fails before it leaves none.
class Output {
 public:
  Output(Io& io, const QString& name) : io_(io), name_(name == "-" ? QString() : name) {}

  void Write(std::string_view bytes) {
    if (!name_.isEmpty() && !file_.is_open() && file_.good()) file_.open(S(name_), std::ios::binary | std::ios::trunc);
    Stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  int Finish() {
    Write({});  // an empty result still makes its file
    if (Stream().flush()) return kExitOk;
    return Fail(io_, name_.isEmpty() ? "cannot write to standard output" : S(name_) + ": cannot be written");
  }

 private:
  std::ostream& Stream() { return name_.isEmpty() ? io_.out : file_; }

  Io& io_;
  QString name_;
  std::ofstream file_;
};

int Emit(Io& io, const std::string& bytes, const QString& output) {
  Output out(io, output);
  out.Write(bytes);
  return out.Finish();
}

// Each block of slides goes out as soon as it is read. A large file's second
// half is made into rows by a second thread meanwhile and held until the
// first half is out, so an export holds one block and the rows of that half.
int ExportCsv(Io& io, const std::string& path, const QString& output) {
  SifDocument doc;
  std::string message;
  // The header alone first: a file a load refuses leaves no output.
  if (!ReadSifStored(path, doc, {}, message, {1, 0})) return Fail(io, message);
  const long count = std::max(static_cast<long>(doc.Header.NumberOfRecords.value), 0L);
  // The first thread also writes every row, so it makes a few less than half.
  const long half = count >= kSecondThreadFrom && std::thread::hardware_concurrency() > 1 ? count * 15 / 32 : count;
  CsvRows later;
  std::string laterMessage;
  bool laterRead = true;
  std::jthread helper;
  if (half < count)
    helper = std::jthread([&] {
      SifDocument own;
      later.Reserve(static_cast<std::size_t>(count - half));  // at once: what the rows leave is never touched
      const auto take = [&later](const char* stored, std::size_t n) { later.Append(stored, n); };
      laterRead = ReadSifStored(path, own, take, laterMessage, {half + 1, count});
    });
  Output out(io, output);
  std::string header;
  AppendCsvHeader(header);
  CsvRows rows;
  const auto take = [&](const char* stored, std::size_t n) {
    rows.Append(stored, n);
    out.Write(header);
    header.clear();
    out.Write(rows.View());
    rows.Clear();
  };
  const bool read = ReadSifStored(path, doc, take, message, {1, half});
  if (helper.joinable()) helper.join();
  if (!read) return Fail(io, message);
  out.Write(header);
  out.Write(later.View());
  if (!laterRead) return Fail(io, laterMessage);
  return out.Finish();
}

bool ReadInput(Io& io, const QString& name, std::string& bytes, std::string& message) {
  if (name == "-") {
    bytes.assign(std::istreambuf_iterator<char>(io.in), std::istreambuf_iterator<char>());
    return true;
  }
  std::error_code ec;
  if (std::filesystem::is_directory(S(name), ec)) {
    message = S(name) + ": is a directory";
    return false;
  }
  std::ifstream f(S(name), std::ios::binary);
  if (!f) {
    message = S(name) + ": " + std::strerror(errno);
    return false;
  }
  bytes.assign(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
  return true;
}

const QCommandLineOption kFormat(QString("format"), "csv or json", "FORMAT");
const QCommandLineOption kOutput({"o", "output"}, "output file", "OUT");

int RunShow(const QStringList& args, Io& io) {
  QCommandLineParser p;
  p.addOption(WhereOption());
  int status = kExitOk;
  SlideQuery query;
  if (!Parse(p, args, io, status) || !WhereQuery(p, Shared(io), query, status)) return status;
  const std::string path = S(p.positionalArguments()[0]);
  SifDocument doc;
  std::string message;
  if (!ReadSif(path, doc, message)) return Fail(io, message);
  io.out << ShowText(path, doc, query);
  return kExitOk;
}

int RunExport(const QStringList& args, Io& io) {
  QCommandLineParser p;
  p.addOptions({kFormat, kOutput, WhereOption()});
  int status = kExitOk;
  if (!Parse(p, args, io, status)) return status;
  const auto format = FormatOf(p, p.value(kOutput));
  if (!format) return Usage(io, "--format takes csv or json");
  SlideQuery query;
  if (!WhereQuery(p, Shared(io), query, status)) return status;
  const std::string path = S(p.positionalArguments()[0]);
  if (*format == Format::Csv && query.Empty()) return ExportCsv(io, path, p.value(kOutput));
  // A query is answered from an index of the whole file, so the file is read whole.
  SifDocument doc;
  std::string message;
  if (!ReadSif(path, doc, message)) return Fail(io, message);
  if (!query.Empty()) {
    std::vector<std::int32_t> numbers;
    doc.Slides = MatchingSlides(doc.Slides, query, numbers);
  }
  if (*format == Format::Json) return Emit(io, ExportJson(ToInventory(doc)), p.value(kOutput));
  std::string csv;
  AppendCsvHeader(csv);
  for (std::size_t i = 1; i < doc.Slides.size(); ++i) AppendCsvSlide(csv, doc.Slides[i]);
  return Emit(io, csv, p.value(kOutput));
}

int RunImport(const QStringList& args, Io& io) {
  QCommandLineParser p;
  const QCommandLineOption templ(QString("template"), "1, 2 or 3", "N");
  const QCommandLineOption force(QString("force"), "replace an existing file");
  p.addOptions({kFormat, kOutput, templ, force});
  int status = kExitOk;
  if (!Parse(p, args, io, status)) return status;
  const QString input = p.positionalArguments()[0];
  if (p.value(kOutput).isEmpty()) return Usage(io, "import needs -o FILE.sif");
  const auto format = FormatOf(p, input);
  if (!format) return Usage(io, "--format takes csv or json");
  std::optional<std::int32_t> templateOverride;
  if (p.isSet(templ)) {
    const QString t = p.value(templ);
    if (t != "1" && t != "2" && t != "3") return Usage(io, "--template takes 1, 2 or 3");
    templateOverride = t.toInt();
  }

  std::string bytes, message;
  if (!ReadInput(io, input, bytes, message)) return Fail(io, message);
  Inventory inv;
  const bool read = *format == Format::Json ? ImportJson(bytes, inv, message) : ImportCsv(bytes, inv, message);
  if (!read) return Fail(io, S(input) + ": " + message);
  SifSettings settings;
  SlideArray slides;
  if (!FromInventory(inv, templateOverride, settings, slides, message))
    return Fail(io, S(input) + ": " + message + "; nothing was written");
  const std::string out = S(p.value(kOutput));
  SlideFileLock lock;  // held until the new file is in place
  if (!lock.TryAcquire(out)) return Fail(io, OpenInProgramMessage(out));
  if (!WriteSif(out, settings, slides, p.isSet(force), message, steps::kImport)) return Fail(io, message);
  return kExitOk;
}

int RunReport(const QStringList& args, Io& io) {
  QCommandLineParser p;
  const QCommandLineOption by(QString("by"), "category or location", "GROUPING");
  const QCommandLineOption key(QString("key"), "the group of the sub-report", "KEY");
  const QCommandLineOption font(QString("font"), "the font face of the page", "NAME");
  p.addOptions({by, key, font, kOutput});
  int status = kExitOk;
  if (!Parse(p, args, io, status)) return status;
  ReportRequest request;
  if (p.value(by) == "category")
    request.kind = ReportKind::ByCategory;
  else if (p.value(by) == "location")
    request.kind = ReportKind::ByLocation;
  else
    return Usage(io, "report needs --by category or --by location");
  std::string message;
  if (p.isSet(key)) {
    // Keys are compared with the file's Windows-1252 text.
    request.key = Utf8ToFileText(S(p.value(key)), message);
    if (!request.key) return Fail(io, "--key: " + message);
  }
  if (p.isSet(font)) {
    request.font = Utf8ToFileText(S(p.value(font)), message);
    if (!request.font) return Fail(io, "--font: " + message);
  }
  const std::string path = S(p.positionalArguments()[0]);
  SifDocument doc;
  if (!ReadSif(path, doc, message)) return Fail(io, message);
  request.filePath = Utf8ToCp1252Lossy(std::filesystem::absolute(path).lexically_normal().string());
  std::string page;
  if (!MakeReport(request, doc, SystemReportLocale(), page, message)) return Fail(io, message);
  return Emit(io, page, p.value(kOutput));
}

int RunCheck(const QStringList& args, Io& io) {
  QCommandLineParser p;
  const QCommandLineOption gallery(QString("gallery"), "the directory of the pictures", "DIR");
  p.addOption(gallery);
  int status = kExitOk;
  if (!Parse(p, args, io, status)) return status;
  std::optional<std::string> dir;
  if (p.isSet(gallery)) dir = S(p.value(gallery));
  std::vector<std::string> findings;
  std::string message;
  if (!CheckSif(S(p.positionalArguments()[0]), dir, findings, message)) return Fail(io, message);
  for (const auto& f : findings) io.out << f << "\n";
  return findings.empty() ? kExitOk : kExitData;
}

// The commands that take their streams and usage text as one CommandIo.
template <int (*Run)(const QStringList&, const CommandIo&)>
int WithUsage(const QStringList& args, Io& io) {
  return Run(args, CommandIo{io.out, io.err, kUsage});
}

struct Command {
  std::string_view name;
  int (*run)(const QStringList&, Io&);
};

constexpr std::array<Command, 12> kCommands{{
    {"show", RunShow},
    {"export", RunExport},
    {"import", RunImport},
    {"report", RunReport},
    {"check", RunCheck},
    {"claim", WithUsage<RunClaim>},
    {"backup", WithUsage<RunBackup>},
    {"restore", WithUsage<RunRestore>},
    {"thumbnail", WithUsage<RunThumbnail>},
    {"history", WithUsage<RunHistory>},
    {"undo", WithUsage<RunUndo>},
    {"redo", WithUsage<RunRedo>},
}};

}  // namespace

int RunSif(const QStringList& args, std::ostream& out, std::ostream& err, std::istream& in) {
  Io io{out, err, in};
  if (args.size() < 2) return Usage(io, "a command is missing");
  const QString first = args[1];
  if (first == "--help" || first == "-h") {
    out << kUsage;
    return kExitOk;
  }
  if (first == "--version" || first == "-v") {
    out << kProgram << " " << CHATTELBOOK_VERSION << "\n";
    return kExitOk;
  }
  for (const auto& c : kCommands)
    if (first == QString::fromUtf8(c.name.data(), static_cast<qsizetype>(c.name.size()))) {
      QStringList rest = args.mid(2);
      rest.prepend(args[0] + " " + first);
      return c.run(rest, io);
    }
  return Usage(io, "unknown command \"" + S(first) + "\"");
}

}  // namespace cb::sif
