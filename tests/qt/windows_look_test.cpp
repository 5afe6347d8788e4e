// What the windows show: pixels, places of the controls, fonts, what a screen reader says.
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <set>

#include "program_test.h"

namespace {

class WindowsLook : public ProgramTest {
 protected:
  WindowsLook() { Start(); }

  QRect PlaceOf(const QString& name) {
    auto* widget = Find(name);
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
  }
};

// Returns the smallest rectangle around the pixels of a kind in a part of an image.
QRect Extent(const QImage& image, QRect part, const std::function<bool(QColor)>& isKind) {
  QRect extent;
  part &= image.rect();
  for (int y = part.top(); y <= part.bottom(); ++y)
    for (int x = part.left(); x <= part.right(); ++x)
      if (isKind(image.pixelColor(x, y))) extent |= QRect(x, y, 1, 1);
  return extent;
}

bool IsRed(QColor colour) {
  return colour.red() > 200 && colour.green() < 100;
}
bool IsDark(QColor colour) {
  return colour.lightness() < 100;
}

// The needle points where the figure beside it says, inside a red circle with all four letters
// around it, at every size of the window.
TEST_F(WindowsLook, CompassPointsAtTheBearing) {
  SetHome("50N 10E");
  const struct {
    const char *place, *bearing, *back;
  } rows[] = {{"60N 10E", "0.0", "180.0"}, {"50N 20E", "86.2", "273.8"},
              {"48N 12E", "146.", "327."}, {"40N 10E", "180.0", "0.0"},
              {"50N 0E", "273.8", "86.2"}, {"52N 9E", "342.9", "162."}};
  for (const int growth : {0, 200}) {
    Pointing().resize(Pointing().size() + QSize(growth, growth));
    for (const auto& [place, bearing, back] : rows) {
      Use(place);
      EXPECT_TRUE(Text("BearText").starts_with(bearing)) << place << ": " << Text("BearText");
      EXPECT_TRUE(Text("BackBearText").starts_with(back)) << place << ": " << Text("BackBearText");
      const auto* compass = QAccessible::queryAccessibleInterface(Find("C"));
      EXPECT_EQ(compass->role(), QAccessible::Graphic);
      EXPECT_EQ(compass->text(QAccessible::Name).toStdString(),
                "Bearing " + Text("BearText") + " degrees");

      const QImage image = Find("C")->grab().toImage();
      const QRect circle = Extent(image, image.rect(), IsRed);
      const double radius = circle.width() / 2.0;
      EXPECT_NEAR(circle.height(), circle.width(), 3);
      EXPECT_GT(circle.width(), 40 + growth / 2);
      const double angle = qDegreesToRadians(std::stod(Text("BearText")));
      const auto isNeedleAt = [&](double distance) {
        const QPointF step(std::sin(angle), -std::cos(angle));
        const QPoint at = (circle.center() + step * distance * radius).toPoint();
        return Extent(image, QRect(at - QPoint(1, 1), QSize(3, 3)), IsDark).isValid();
      };
      for (const double distance : {0.3, 0.6, 0.85}) {
        EXPECT_TRUE(isNeedleAt(distance)) << place << " " << distance;
        EXPECT_FALSE(isNeedleAt(-distance)) << place << " " << distance;
      }
      const QRect ground = Extent(image, image.rect(),
                                  [](QColor colour) { return colour == QColor(250, 250, 180); });
      const struct {
        const char* letter;
        QRect free;  // contains the letter and nothing else
      } letters[] = {
          {"N", {circle.left(), ground.top(), circle.width(), circle.top() - ground.top()}},
          {"S", {circle.left(), circle.bottom() + 1, circle.width(), ground.bottom()}},
          {"W", {ground.left(), circle.top(), circle.left() - ground.left(), circle.height()}},
          {"E", {circle.right() + 1, circle.top(), ground.right(), circle.height()}}};
      for (const auto& [letter, free] : letters) {
        const QRect ink = Extent(image, free & ground, IsDark);
        EXPECT_TRUE(ink.isValid() && ground.adjusted(1, 1, -1, -1).contains(ink)) << letter;
      }
    }
  }
  const QImage image = Find("C")->grab().toImage();
  EXPECT_LT(Find("BearText")->width(), image.width()) << "only the compass grows";
  Click("InputText");
  EXPECT_FALSE(Extent(Find("C")->grab().toImage(), image.rect(), IsRed).isValid());
}

// A label is at the left of its field or above it, and leads a screen reader to it.
TEST_F(WindowsLook, LabelsAreBesideTheirFields) {
  SetHome("50N 10E");
  Click("GenList");
  Click("UseNMEA");
  QTest::qWait(1);
  const struct {
    const char *caption, *field;
    bool isAbove = false;
  } rows[] = {{"Input data", "InputText", true}, {"Location of Site database", "LocDatabase"},
              {"Min Distance", "MinDisttext"},   {"Max Distance", "MaxDistText"},
              {"Bearing From", "FromBearText"},  {"through to  to bearing ", "ToBearText"},
              {"Search String", "Srchtext"},     {"List File name", "ListFileName"},
              {"Bearing", "BearText"},           {"Back Bearing", "BackBearText"},
              {"Distance  km", "DistText"},      {"Accuracy", "UncertText"},
              {"COM Port", "CPort", true},       {"Baud Rate", "Baud", true}};
  for (const auto& [caption, name, isAbove] : rows) {
    const QRect field = PlaceOf(name);
    const QLabel* nearest = nullptr;
    int smallest = 40;  // pixels
    for (const auto* label : Find(name)->window()->findChildren<QLabel*>()) {
      const QRect place(label->mapTo(label->window(), QPoint()), label->size());
      const int gap = isAbove ? field.top() - place.bottom() : field.left() - place.right();
      const bool isInLine = isAbove ? std::abs(place.left() - field.left()) < 10
                                    : std::abs(place.center().y() - field.center().y()) < 10;
      if (!label->isVisible() || !isInLine || gap < 0 || gap >= smallest) continue;
      nearest = label;
      smallest = gap;
    }
    ASSERT_NE(nearest, nullptr) << caption;
    EXPECT_EQ(nearest->text().toStdString(), caption) << name;
    EXPECT_EQ(nearest->buddy(), Find(name)) << caption;
  }
  Click("InputText");
  Use("NN166712");
  EXPECT_EQ(Text("Xdim"), "100m");
  EXPECT_LT(PlaceOf("Xdim").bottom(), PlaceOf("Frame1").top());
  EXPECT_LT(PlaceOf("Ydim").right(), PlaceOf("Frame1").left());
  // "Loc" and "NGR" are one caption; each word is above its field.
  const QImage caption = Find("Label15")->grab().toImage();
  const QColor ground = caption.pixelColor(caption.width() - 1, 0);
  const int reference = PlaceOf("NGRText").left() - PlaceOf("Label15").left();
  const QRect before = caption.rect().adjusted(60, 0, reference - caption.width(), 0);
  const auto isInk = [ground](QColor colour) { return colour != ground; };
  EXPECT_FALSE(Extent(caption, before, isInk).isValid());
  EXPECT_NEAR(Extent(caption, caption.rect().adjusted(60, 0, 0, 0), isInk).left(), reference, 4);
}

// A form that was calculated is red, and a screen reader says so.
TEST_F(WindowsLook, CalculatedFormsAreMarked) {
  const struct {
    const char* typed;
    bool locator, reference;
  } rows[] = {{"io91wm", false, true}, {"NN166712", true, false}, {"51.5N 1.25W", false, false}};
  for (const auto& [typed, locator, reference] : rows) {
    Use(typed);
    for (const auto& [name, isCalculated] :
         {std::pair("LocText", locator), {"NGRText", reference}}) {
      EXPECT_EQ(Find(name)->accessibleDescription().startsWith("Calculated."), isCalculated);
      const QImage image = Find(name)->grab().toImage();
      EXPECT_EQ(Extent(image, image.rect(), IsRed).isValid(), isCalculated) << typed << name;
    }
  }
}

// A name of any length is shown in full, on a pink background.
TEST_F(WindowsLook, BannerGrowsWithItsText) {
  auto* banner = Find<QLabel>("BaseLocLbl");
  const int line = banner->height();
  program_->runner.Run([](Workspace& w) {
    w.Tarnwick.BaseLocLbl.caption = "Home Station:";
    for (int i = 0; i < 30; ++i) w.Tarnwick.BaseLocLbl.caption += " Great Hill";
  });
  QTest::qWait(1);
  EXPECT_GT(banner->height(), 2 * line);
  EXPECT_GE(PlaceOf("SaveOnExit").top(), PlaceOf("BaseLocLbl").bottom());
  const QRect text = banner->fontMetrics().boundingRect(QRect(0, 0, banner->width(), 1000),
                                                        Qt::TextWordWrap, banner->text());
  EXPECT_GE(banner->height(), text.height());
  EXPECT_EQ(banner->grab().toImage().pixelColor(1, 1), QColor(255, 192, 255));
}

// Entries fill one of four columns after the other; a notch of the wheel scrolls by one column.
TEST_F(WindowsLook, ResultsAreInFourColumns) {
  List(std::vector<std::string>(1'000, std::string(28, 'W')));
  auto* list = Find<QListView>("PR");
  const auto place = [list](int row) { return list->visualRect(list->model()->index(row, 0)); };
  EXPECT_EQ(place(1).x(), place(0).x());
  EXPECT_GE(place(1).y(), place(0).bottom());
  std::set<int> columns;
  for (int row = 0; list->viewport()->rect().intersects(place(row)); ++row)
    columns.insert(place(row).x());
  EXPECT_EQ(columns.size(), 4U);
  const int width = list->fontMetrics().horizontalAdvance(QString(28, 'W'));
  EXPECT_GT(*std::next(columns.begin()) - *columns.begin(), width + 10) << "a gutter";
  const auto turn = [list](int angle) {
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(list->viewport(), &wheel);
    return list->horizontalScrollBar()->value();
  };
  EXPECT_EQ(turn(-60), 0);
  EXPECT_EQ(turn(-60), 1);
  EXPECT_EQ(turn(120), 0);
}

// No text is cut off in any font, and the fields are readable on a dark desktop.
TEST_F(WindowsLook, TextsFitInEveryFontOnADarkDesktop) {
  const QFont font = QApplication::font();
  const QPalette palette = QApplication::palette();
  for (const int points : {9, 12, 16}) {
    QFont larger = font;
    larger.setPointSize(points);
    QApplication::setFont(larger);
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    Start();
    SetHome("51 30 15 N 1 15 30 W");
    Click("GenList");
    Click("UseNMEA");
    List({"IO91WM"});
    QTest::qWait(1);
    EXPECT_GT(Find("BearText")->font().pointSizeF(), 1.8 * points);
    for (const FramedWindow* window : program_->VisibleWindows()) {
      for (auto* widget : window->findChildren<QWidget*>(QRegularExpression("."))) {
        if (!widget->isVisible()) continue;
        EXPECT_GE(widget->width(), widget->minimumSizeHint().width())
            << points << widget->objectName().toStdString();
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
            << points << widget->objectName().toStdString();
      }
      EXPECT_LE(window->width(), window->screen()->availableGeometry().width()) << points;
      EXPECT_LE(window->height(), window->screen()->availableGeometry().height()) << points;
    }
    const QPalette shown = Find("LocDatabase")->palette();
    EXPECT_LT(shown.color(QPalette::Text).lightness(), 64);
    EXPECT_GT(shown.color(QPalette::Base).lightness(), 192);
    EXPECT_GT(Main().palette().color(QPalette::Window).lightness(), 192);
  }
  QApplication::setFont(font);
  QApplication::setPalette(palette);
}

}  // namespace
