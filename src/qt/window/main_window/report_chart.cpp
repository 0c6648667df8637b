// SPDX-License-Identifier: MIT
// The geometry, the colours and the words of the drawing.
#include "qt/window/main_window/report_chart.h"

#include <QPainter>
#include <array>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/look/glyphs.h"

namespace requite {
namespace {

constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr std::size_t kMostSites = 50;

struct Share {
  QString Words;
  int Sites;
  QColor Colour;
};

QColor Grey(const QPalette& palette) {
  QColor colour = palette.color(QPalette::Text);
  colour.setAlpha(128);
  return colour;
}

}  // namespace

class ReportChart::Drawing : public QWidget {
 public:
  explicit Drawing(QWidget* parent) : QWidget(parent) {
    setObjectName("reportChart");
    setAccessibleName(ReportChart::tr("Verdicts and links of the last scan"));
  }

  void Show(const SiteCounts& counts, std::vector<SiteLinks> links) {
    counts_ = counts;
    links_ = std::move(links);
    QStringList words;
    for (const Share& each : Shares()) words << LegendOf(each);
    for (const SiteLinks& each : FirstSites())
      words << OneLine(each.Site) + ": " + QString::number(each.Links);
    setAccessibleDescription(words.join("; "));
    setFixedHeight(Height());
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    int y = kMargin;
    y = PaintHeading(painter, y, ReportChart::tr("Sites"));
    y = PaintShares(painter, y);
    y = PaintHeading(painter, y + kMargin, ReportChart::tr("Links by site"));
    PaintSites(painter, y);
  }

 private:
  [[nodiscard]] std::array<Share, 3> Shares() const {
    return {{{ReportChart::tr("link back"), counts_.LinkBack, ShadeOf(Tone::Blue)},
             {ReportChart::tr("do not"), counts_.Missing, ShadeOf(Tone::Red)},
             {ReportChart::tr("not reached"), counts_.NotReached, Grey(palette())}}};
  }

  [[nodiscard]] QString LegendOf(const Share& share) const {
    const int percent = counts_.Sites == 0 ? 0 : (share.Sites * 200 + counts_.Sites) / (2 * counts_.Sites);
    return QString("%1 %2 (%3%)").arg(share.Sites).arg(share.Words).arg(percent);
  }

  [[nodiscard]] std::vector<SiteLinks> FirstSites() const {
    return {links_.begin(),
            links_.begin() + static_cast<std::ptrdiff_t>(std::min(kMostSites, links_.size()))};
  }

  [[nodiscard]] int Line() const { return fontMetrics().height() + kGap; }
  [[nodiscard]] int BarHeight() const { return fontMetrics().height() / 2; }
  [[nodiscard]] QRect Row(int y) const { return {kMargin, y, width() - 2 * kMargin, fontMetrics().height()}; }

  [[nodiscard]] int Height() const {
    const int sites = static_cast<int>(std::min(kMostSites, links_.size()));
    const int lines = 2 + static_cast<int>(Shares().size()) + sites + (links_.size() > kMostSites ? 1 : 0);
    return 3 * kMargin + lines * Line() + Line() + sites * (BarHeight() + kGap);
  }

  int PaintHeading(QPainter& painter, int y, const QString& words) const {
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.drawText(Row(y), Qt::AlignLeft, words);
    painter.setFont(font());
    return y + Line();
  }

  /// One bar for all sites, and a line of words for each part of it.
  int PaintShares(QPainter& painter, int y) const {
    const QRect bar = Row(y);
    int done = 0;
    const auto placeOf = [&](int sites) {
      return bar.left() + (counts_.Sites == 0 ? 0 : bar.width() * sites / counts_.Sites);
    };
    for (const Share& each : Shares()) {
      painter.fillRect(placeOf(done), bar.top(), placeOf(done + each.Sites) - placeOf(done), bar.height(),
                       each.Colour);
      done += each.Sites;
    }
    y += Line();
    for (const Share& each : Shares()) {
      const QRect row = Row(y);
      painter.fillRect(row.left(), row.top() + row.height() / 4, row.height() / 2, row.height() / 2,
                       each.Colour);
      painter.drawText(row.adjusted(row.height(), 0, 0, 0), Qt::AlignLeft, LegendOf(each));
      y += Line();
    }
    return y;
  }

  void PaintSites(QPainter& painter, int y) const {
    const int most = links_.empty() ? 1 : std::max(1, links_.front().Links);
    for (const SiteLinks& each : FirstSites()) {
      const QRect row = Row(y);
      const QString count = QString::number(each.Links);
      const int room = row.width() - fontMetrics().horizontalAdvance(count) - kMargin;
      painter.drawText(row, Qt::AlignLeft,
                       fontMetrics().elidedText(OneLine(each.Site), Qt::ElideRight, room));
      painter.drawText(row, Qt::AlignRight, count);
      y += Line() - kGap;
      const int length = row.width() * each.Links / most;
      painter.fillRect(row.left(), y, std::max(1, length), BarHeight(),
                       each.Links > 0 ? ShadeOf(Tone::Blue) : ShadeOf(Tone::Red));
      y += BarHeight() + 2 * kGap;
    }
    if (links_.size() <= kMostSites) return;
    painter.drawText(Row(y), Qt::AlignLeft,
                     ReportChart::tr("and %n more", nullptr, static_cast<int>(links_.size() - kMostSites)));
  }

  SiteCounts counts_;
  std::vector<SiteLinks> links_;
};

ReportChart::ReportChart(Form1& form, QWidget* parent)
    : QScrollArea(parent), form_(form), drawing_(new Drawing(this)) {
  setWidget(drawing_);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMinimumWidth(fontMetrics().averageCharWidth() * 30);
  setAccessibleName(drawing_->accessibleName());
  hide();
}

void ReportChart::Follow() {
  const RecordList<LinkResult>& results = form_.Sites.List3;
  setVisible(!results.Empty() && !form_.State.Scanning && form_.Tally.Counts().Sites > 0);
  if (isHidden() || (rows_ == results.RowCount() && sites_ == form_.Tally.Counts().Sites)) return;
  rows_ = results.RowCount();
  sites_ = form_.Tally.Counts().Sites;
  drawing_->Show(form_.Tally.Counts(), LinksBySite(results));
}

}  // namespace requite
