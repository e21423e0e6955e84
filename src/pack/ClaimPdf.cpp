// SPDX-License-Identifier: GPL-3.0-or-later
#include "pack/ClaimPdf.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHashFunctions>
#include <QScopeGuard>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QTextLayout>
#include <QtConcurrent/QtConcurrentMap>

#include <algorithm>

#include "pack/JobControl.h"
#include "qt/OutputFile.h"

namespace cb::pack {
namespace {

// Device units: the writer runs at 300 dots an inch; measures are in mm.
constexpr int kDpi = 300;
constexpr qreal Mm(qreal mm) { return mm * kDpi / 25.4; }

constexpr qreal kMarginMm = 16;
constexpr qreal kFooterMm = 9;
constexpr qreal kGapMm = 4;  // below a slide's block, its rule in the middle
constexpr qreal kPictureWMm = 64;
constexpr qreal kPictureHMm = 46;
constexpr qreal kRowMm = 7;      // a row of the summary table
// Pictures keep 150 dots an inch at their printed size: sharp on paper,
// a few tens of kilobytes each.
constexpr int kPictureDpi = 150;
// Blocks measured between two calls of the progress: some 15 ms.
constexpr std::size_t kMeasuredBetweenCalls = 256;

constexpr std::string_view kTitle = "Inventory for an Insurance Claim";

QString Q(const std::string& s) { return QString::fromStdString(s); }

QFont Font(qreal points, bool bold = false) {
  QFont f("DejaVu Sans");
  f.setPointSizeF(points);
  f.setBold(bold);
  return f;
}

const QColor kGrey(110, 110, 110);
const QColor kRule(180, 180, 180);

// The picture at no more than `box` pixels, upright, without alpha (so the
// writer stores it as a JPEG); null when it does not decode.
QImage DecodeForPrint(const std::string& path, QSize box) {
  QImageReader reader(Q(path));
  reader.setAutoTransform(true);
  if (const QSize stored = reader.size(); stored.isValid()) {
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QSize upright = turned ? stored.transposed() : stored;
    const QSize fit = upright.scaled(box, Qt::KeepAspectRatio);
    if (fit.width() < upright.width() && !fit.isEmpty()) reader.setScaledSize(turned ? fit.transposed() : fit);
  }
  QImage image = reader.read();
  if (image.isNull()) return {};
  if (image.width() > box.width() || image.height() > box.height())
    image = image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  return image.convertToFormat(QImage::Format_RGB32);
}

QSize PictureBoxPixels() {
  return {qRound(kPictureWMm / 25.4 * kPictureDpi), qRound(kPictureHMm / 25.4 * kPictureDpi)};
}

class ClaimWriter {
 public:
  ClaimWriter(QPdfWriter& writer, QPainter& painter, const ClaimContent& c, const ClaimPdfOptions& o,
              const JobProgress& progress)
      : writer_(writer), p_(painter), c_(c), o_(o), progress_(progress), width_(writer.width()),
        bodyHeight_(writer.height() - Mm(kFooterMm)) {
    rowsPerPage_ = std::max(1, static_cast<int>((bodyHeight_ - Mm(18)) / Mm(kRowMm)));
  }

  // False when the user cancelled.
  bool Write() {
    if (!Paginate()) return false;
    const int rows = static_cast<int>(c_.groups.size()) + (c_.ungrouped > 0 ? 1 : 0) + 1;
    pages_ = 1 + (rows + rowsPerPage_ - 1) / rowsPerPage_ + static_cast<int>(slidePages_.size());
    Cover();
    Summary();
    if (!Slides()) return false;
    Footer();
    return true;
  }

 private:
  void NewPage() {
    Footer();
    writer_.newPage();
    ++page_;
  }

  void Footer() {
    const qreal y = writer_.height() - Mm(6);
    p_.setPen(QPen(kRule, Mm(0.2)));
    p_.drawLine(QPointF(0, y - Mm(1.5)), QPointF(width_, y - Mm(1.5)));
    const QFont font = Font(8);
    p_.setFont(font);
    p_.setPen(kGrey);
    const QRectF line(0, y, width_, Mm(5));
    const QString name = QFontMetricsF(font, &writer_).elidedText(Q(c_.fileName), Qt::ElideMiddle, width_ * 0.45);
    p_.drawText(line, Qt::AlignLeft | Qt::AlignTop, name + "  \u00b7  " + Q(std::string(kTitle)));
    p_.drawText(line, Qt::AlignRight | Qt::AlignTop, QString("Page %1 of %2").arg(page_).arg(pages_));
  }

  // `text` laid out in `width` from (x, y), a word too long for a line
  // broken where it must; drawn in the pen's colour unless only measured.
  // Returns its height.
  qreal Paragraph(qreal x, qreal y, qreal width, const QString& text, const QFont& font, bool draw) {
    QTextLayout layout(text, font, &writer_);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal h = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width);
      line.setPosition(QPointF(0, h));
      h += line.height();
    }
    layout.endLayout();
    if (draw) layout.draw(&p_, QPointF(x, y));
    return std::max(h, QFontMetricsF(font, &writer_).height());
  }

  // A label in grey from `x` and its value beside it, both wrapped in their
  // columns; returns the height used.
  qreal Fact(qreal x, qreal y, qreal labelWidth, const QString& label, const QString& value, const QFont& font,
             qreal spacing = 1.45, bool draw = true) {
    const qreal lead = QFontMetricsF(font, &writer_).height() * (spacing - 1) / 2;
    p_.setPen(kGrey);
    const qreal labelHeight = Paragraph(x, y + lead, labelWidth - Mm(1), label, font, draw);
    p_.setPen(Qt::black);
    const qreal valueHeight = Paragraph(x + labelWidth, y + lead, width_ - x - labelWidth, value, font, draw);
    return std::max(labelHeight, valueHeight) + 2 * lead;
  }

  void Cover() {
    qreal y = Mm(20);
    p_.setPen(Qt::black);
    p_.setFont(Font(24, true));
    p_.drawText(QRectF(0, y, width_, Mm(14)), Qt::AlignLeft | Qt::AlignVCenter, Q(std::string(kTitle)));
    y += Mm(16);
    y += Mm(1.5) + Paragraph(0, y + Mm(1.5), width_, Q(c_.fileName), Font(15), true) + Mm(4);
    p_.setPen(QPen(Qt::black, Mm(0.4)));
    p_.drawLine(QPointF(0, y), QPointF(width_, y));
    y += Mm(8);
    const QFont facts = Font(12);
    const qreal labelWidth = Mm(45);
    y += Fact(0, y, labelWidth, "File", Q(c_.fileName), facts);
    y += Fact(0, y, labelWidth, "Template", Q(c_.templateName), facts);
    y += Fact(0, y, labelWidth, "Date", o_.dateText, facts);
    y += Fact(0, y, labelWidth, "Slides", QString::number(c_.slideCount), facts);
    y += Fact(0, y, labelWidth, "Grand total", Q(c_.grandTotal), Font(12, true));
    y += Mm(3);
    p_.setFont(Font(9));
    p_.setPen(kGrey);
    const QString note = QString("The totals are those of the summary report: each slide's value is the number at "
                                 "the front of its %1, counted where the slide has both a Category and a %2.")
                             .arg(Q(c_.slides.empty() ? "Total Value" : c_.slides[0].fields.back().label),
                                  Q(c_.locationWord));
    p_.drawText(QRectF(0, y, width_, Mm(12)), Qt::AlignLeft | Qt::TextWordWrap, note);
    y += Mm(24);
    // Left for the claimant to fill in by hand.
    for (const char* blank : {"Policyholder", "Policy number", "Claim number", "Signature"}) {
      y += Fact(0, y, labelWidth, blank, "", facts);
      p_.setPen(QPen(kRule, Mm(0.25)));
      p_.drawLine(QPointF(labelWidth, y - Mm(1.5)), QPointF(width_, y - Mm(1.5)));
      y += Mm(4);
    }
  }

  void SummaryRow(qreal y, const QString& group, const QString& count, const QString& total, bool bold) {
    const qreal h = Mm(kRowMm);
    p_.setFont(Font(10, bold));
    p_.setPen(Qt::black);
    const qreal countRight = width_ * 0.72;
    p_.drawText(QRectF(Mm(2), y, width_ * 0.55, h), Qt::AlignLeft | Qt::AlignVCenter, group);
    p_.drawText(QRectF(0, y, countRight, h), Qt::AlignRight | Qt::AlignVCenter, count);
    p_.drawText(QRectF(0, y, width_ - Mm(2), h), Qt::AlignRight | Qt::AlignVCenter, total);
  }

  void SummaryHeading(qreal& y, bool continued) {
    p_.setPen(Qt::black);
    p_.setFont(Font(14, true));
    const QString title = "Summary by " + Q(c_.groupWord) + (continued ? " (continued)" : "");
    p_.drawText(QRectF(0, y, width_, Mm(9)), Qt::AlignLeft | Qt::AlignVCenter, title);
    y += Mm(10);
    SummaryRow(y, Q(c_.groupWord), "Slides", "Total", true);
    y += Mm(kRowMm);
    p_.setPen(QPen(Qt::black, Mm(0.3)));
    p_.drawLine(QPointF(0, y), QPointF(width_, y));
  }

  void Summary() {
    NewPage();
    qreal y = 0;
    SummaryHeading(y, false);
    int row = 0;
    std::int32_t counted = 0;
    const auto Next = [&] {
      if (++row % rowsPerPage_ == 0) {
        NewPage();
        y = 0;
        SummaryHeading(y, true);
      }
    };
    for (const auto& g : c_.groups) {
      if (row % 2 == 1) p_.fillRect(QRectF(0, y, width_, Mm(kRowMm)), QColor(238, 242, 246));
      SummaryRow(y, Q(g.key), QString::number(g.slides), Q(g.total), false);
      counted += g.slides;
      y += Mm(kRowMm);
      Next();
    }
    if (c_.ungrouped > 0) {
      p_.setFont(Font(10));
      p_.setPen(kGrey);
      const QString text = QString("Without a Category or a %1, in no total").arg(Q(c_.locationWord));
      p_.drawText(QRectF(Mm(2), y, width_ * 0.6, Mm(kRowMm)), Qt::AlignLeft | Qt::AlignVCenter, text);
      p_.drawText(QRectF(0, y, width_ * 0.72, Mm(kRowMm)), Qt::AlignRight | Qt::AlignVCenter,
                  QString::number(c_.ungrouped));
      y += Mm(kRowMm);
      Next();
    }
    p_.setPen(QPen(Qt::black, Mm(0.3)));
    p_.drawLine(QPointF(0, y), QPointF(width_, y));
    SummaryRow(y, "Total", QString::number(counted), Q(c_.grandTotal), true);
  }

  void PictureBox(const QRectF& box, const ClaimSlide& s, const QImage& image) {
    if (!image.isNull()) {
      const QSizeF shown = QSizeF(image.size()).scaled(box.size(), Qt::KeepAspectRatio);
      const QRectF r(box.x() + (box.width() - shown.width()) / 2, box.y() + (box.height() - shown.height()) / 2,
                     shown.width(), shown.height());
      p_.drawImage(r, image);
      return;
    }
    p_.fillRect(box, QColor(240, 240, 240));
    p_.setPen(QPen(kRule, Mm(0.3), Qt::DashLine));
    p_.drawRect(box);
    p_.setPen(kGrey);
    p_.setFont(Font(10, true));
    const QString why = s.picture.empty() ? "No picture named"
                        : s.pictureFound  ? "Picture cannot be read"
                                          : "Picture missing";
    p_.drawText(box.adjusted(Mm(2), Mm(2), -Mm(2), -Mm(2)), Qt::AlignCenter | Qt::TextWordWrap,
                s.picture.empty() ? why : why + "\n" + Q(s.picture));
  }

  // A slide's block from `y`: the picture, and beside it the title and the
  // fields, as tall as the longer of the two. Only measured when `image` is
  // null; returns the height, the gap below included.
  qreal Block(qreal y, const ClaimSlide& s, const QImage* image) {
    const bool draw = image != nullptr;
    const QRectF box(0, y, Mm(kPictureWMm), Mm(kPictureHMm));
    if (draw) PictureBox(box, s, *image);
    const qreal x = box.right() + Mm(6);
    p_.setPen(Qt::black);
    const QString title = QString("Slide %1").arg(s.number) + (s.text.empty() ? "" : "  \u2013  " + Q(s.text));
    qreal fy = y + Paragraph(x, y, width_ - x, title, Font(11, true), draw) + Mm(2);
    const QFont body = Font(9.5);
    const qreal labelWidth = Mm(28);
    for (const auto& f : s.fields) fy += Fact(x, fy, labelWidth, Q(f.label), Q(f.value), body, 1.1, draw);
    const QString picture = s.picture.empty() ? "none named" : Q(s.picture) + (s.pictureFound ? "" : "  (missing)");
    fy += Fact(x, fy, labelWidth, "Picture", picture, body, 1.1, draw);
    const qreal bottom = std::max(fy, box.bottom()) + Mm(kGapMm) / 2;
    if (draw) {
      p_.setPen(QPen(kRule, Mm(0.2)));
      p_.drawLine(QPointF(0, bottom), QPointF(width_, bottom));
    }
    return bottom + Mm(kGapMm) / 2 - y;
  }

  // The slides' pages, each as many whole blocks as fit, one at least.
  // Measuring every block of a large file takes seconds before the first
  // picture, so the user can cancel here too. False when they did.
  bool Paginate() {
    qreal y = 0;
    for (std::size_t i = 0; i < c_.slides.size(); ++i) {
      if (i % kMeasuredBetweenCalls == kMeasuredBetweenCalls - 1 && !progress_({"Picture", 1, c_.slides.size()}))
        return false;
      const qreal h = Block(0, c_.slides[i], nullptr);
      if (slidePages_.empty() || y + h > bodyHeight_) {
        slidePages_.emplace_back();
        y = 0;
      }
      slidePages_.back().push_back(i);
      y += h;
    }
    return true;
  }

  bool Slides() {
    const QSize pixels = PictureBoxPixels();
    std::size_t drawn = 0;
    for (const auto& indices : slidePages_) {
      // One page's pictures decode on all cores while the page waits.
      std::vector<const ClaimSlide*> page;
      for (const std::size_t i : indices) page.push_back(&c_.slides[i]);
      const std::vector<QImage> images = QtConcurrent::blockingMapped<std::vector<QImage>>(
          page, [pixels](const ClaimSlide* s) { return s->pictureFound ? DecodeForPrint(s->picturePath, pixels) : QImage(); });
      NewPage();
      qreal y = 0;
      for (std::size_t i = 0; i < page.size(); ++i) {
        y += Block(y, *page[i], &images[i]);
        if (!progress_({"Picture", ++drawn, c_.slides.size()})) return false;
      }
    }
    return true;
  }

  QPdfWriter& writer_;
  QPainter& p_;
  const ClaimContent& c_;
  const ClaimPdfOptions& o_;
  const JobProgress& progress_;
  qreal width_;
  qreal bodyHeight_;
  int rowsPerPage_ = 1;
  std::vector<std::vector<std::size_t>> slidePages_;
  int pages_ = 1;
  int page_ = 1;
};

}  // namespace

Status WriteClaimPdf(const ClaimContent& content, const ClaimPdfOptions& options, const std::string& path,
                     const JobProgress& progress) {
  OutputFile file(Q(path));
  if (!file.open()) return Status::Described(path + ": " + file.errorString().toStdString());
  // The writer lists its fonts in the order of hashes it fills as it paints;
  // with a fixed seed the same claim gives the same bytes in every process,
  // dates apart.
  QHashSeed::setDeterministicGlobalSeed();
  const auto reseed = qScopeGuard([] { QHashSeed::resetRandomGlobalSeed(); });
  {
    QPdfWriter writer(&file.device());
    writer.setResolution(kDpi);
    writer.setPageSize(QPageSize(options.page));
    writer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
    writer.setTitle(Q(std::string(kTitle)) + ": " + Q(content.fileName));
    writer.setCreator("Chattelbook");
    QPainter painter;
    if (!painter.begin(&writer)) {
      file.cancel();
      return Status::Described(path + ": the PDF could not be started");
    }
    const bool whole = ClaimWriter(writer, painter, content, options, progress).Write();
    painter.end();
    if (!whole) {
      file.cancel();
      return Cancelled(path);
    }
  }
  if (!file.commit()) return Status::Described(path + ": " + file.errorString().toStdString());
  return {};
}

}  // namespace cb::pack
