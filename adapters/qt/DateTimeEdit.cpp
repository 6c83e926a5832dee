#include "adapters/qt/DateTimeEdit.h"

#include "adapters/controls/PickerValue.h"
#include "adapters/qt/QText.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTextCharFormat>

#include <algorithm>
#include <utility>

namespace kvex::qt {
namespace {

const QString wholeYear = QStringLiteral("yyyy");

/// Qt reads "yyy" as a two-digit year followed by "y".
QString withWholeYear(QString format) {
    static const QRegularExpression year(QStringLiteral("y{3,}"));
    return format.replace(year, wholeYear);
}

constexpr int noDigit = -1;

/// Accepts the digits of every script.
int digitOf(const QKeyEvent &event) {
    return isTyping(event) && event.text().size() == 1 ? event.text().front().digitValue()
                                                       : noDigit;
}

/// Accepts the usual separators, not only the format's, because people write dates in many ways.
bool isSeparator(const QKeyEvent &event) {
    return isTyping(event) && QStringLiteral("/.-:, ").contains(event.text());
}

struct Range {
    int least;
    int most;
};

/// The values of a two-digit part, independent of the other parts.
Range rangeOf(QDateTimeEdit::Section part) {
    switch (part) {
    case QDateTimeEdit::DaySection:
        return {1, 31};
    case QDateTimeEdit::MonthSection:
        return {1, 12};
    case QDateTimeEdit::HourSection:
        return {0, 23};
    default:
        return {0, 59};
    }
}

} // namespace

DateTimeEdit::DateTimeEdit(QWidget *parent, const QString &format) : QDateTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    // Shows the digits 0 to 9 in every language, as keyboards have them.
    setLocale(QLocale::c());
    setDisplayFormat(withWholeYear(format));
    setDateTimeRange({{controls::PickerValue::firstYear, 1, 1}, {0, 0}, Qt::UTC},
                     {{controls::PickerValue::lastYear, 12, 31}, {23, 59, 59, 999}, Qt::UTC});
    const bool showsDate = (displayedSections() & DateSections_Mask) != NoSection;
    setCalendarPopup(showsDate);
    connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, [this] { firstDigit_.reset(); });
    if (showsDate) {
        QCalendarWidget &calendar = *calendarWidget();
        calendar.setLocale(QLocale());
        calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        // Qt's red weekends do not follow the theme.
        calendar.setWeekdayTextFormat(Qt::Saturday, {});
        calendar.setWeekdayTextFormat(Qt::Sunday, {});
        // Some dark themes leave a light background behind the names of the days.
        QTextCharFormat dayNames;
        dayNames.setBackground(QColor(Qt::transparent));
        calendar.setHeaderTextFormat(dayNames);
    }
}

void DateTimeEdit::show(const QDateTime &value) {
    const QSignalBlocker quiet(this);
    empty_ = !value.isValid();
    setDateTime(empty_ ? dateTime() : value);
}

/// Leaves room for the caret after the text.
QSize DateTimeEdit::sizeHint() const {
    return QDateTimeEdit::sizeHint() + QSize(fontMetrics().averageCharWidth(), 0);
}

QString DateTimeEdit::textFromDateTime(const QDateTime &value) const {
    // Qt also asks for other values, to measure the room.
    const bool isShown = value == dateTime();
    return empty_ && isShown ? QString() : QDateTimeEdit::textFromDateTime(value);
}

/// The value of a complete text, if it is in range. Parts that the format does not show stay. Qt's
/// own function would reuse a day from before the text was replaced.
QDateTime DateTimeEdit::wholeValue(const QString &text) const {
    const QDateTime said = QDateTime::fromString(text, displayFormat());
    const Sections shown = displayedSections();
    const QDateTime value((shown & DateSections_Mask) != NoSection ? said.date() : date(),
                          (shown & TimeSections_Mask) != NoSection ? said.time() : time(), Qt::UTC);
    const bool isInRange = value >= minimumDateTime() && value <= maximumDateTime();
    return said.isValid() && isInRange ? value : QDateTime();
}

QValidator::State DateTimeEdit::validate(QString &text, int &position) const {
    if (wholeValue(text).isValid()) {
        return QValidator::Acceptable;
    }
    return isYearBegun(text) ? QValidator::Intermediate : QDateTimeEdit::validate(text, position);
}

/// Whether only the end of the year is missing. The year need not be in range.
bool DateTimeEdit::isYearBegun(const QString &text) const {
    const qsizetype at = displayFormat().indexOf(wholeYear);
    if (at < 0 || text.size() >= displayFormat().size()) {
        return false;
    }
    const QString shown = QDateTimeEdit::textFromDateTime(dateTime());
    const QString after = shown.mid(at + wholeYear.size());
    return text.startsWith(shown.left(at)) && text.endsWith(after) &&
           std::all_of(text.begin() + at, text.end() - after.size(),
                       [](QChar unit) { return unit.isDigit(); });
}

QDateTime DateTimeEdit::dateTimeFromText(const QString &text) const {
    const QDateTime value = wholeValue(text);
    return value.isValid() ? value : QDateTimeEdit::dateTimeFromText(text);
}

void DateTimeEdit::keyPressEvent(QKeyEvent *event) {
    const bool isAllSelected = !text().isEmpty() && lineEdit()->selectedText() == text();
    const int digit = digitOf(*event);
    const bool deletes = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
    if (isAllSelected && (digit != noDigit || deletes)) {
        interpretText();
        setSelectedSection(sectionAt(0));
    }
    const bool hadEndedPart = std::exchange(digitEndedPart_, false);
    // Qt would leave the field.
    const bool isByWord = event->modifiers().testFlag(Qt::ControlModifier);
    if (digit != noDigit) {
        typeDigit(digit);
    } else if (isSeparator(*event)) {
        // If the last digit ended the part, the separator does not end the next one.
        goToPart(hadEndedPart ? 0 : 1);
    } else if (isByWord && (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)) {
        goToPart(event->key() == Qt::Key_Right ? 1 : -1);
    } else if (!(isAllSelected && deletes)) {
        QDateTimeEdit::keyPressEvent(event);
    }
}

/// Takes over the digits typed so far.
void DateTimeEdit::goToPart(int step) {
    const int part = std::clamp(currentSectionIndex() + step, 0, sectionCount() - 1);
    interpretText();
    setSelectedSection(sectionAt(part));
}

/// The user types the day before the month, so the old month may cut it: 31 becomes 30 in April.
/// Once the user has typed the month or the year, the field tries the typed day again.
void DateTimeEdit::typeDigit(int digit) {
    if (date() != typedDate_) {
        typedDay_ = 0;
    }
    if (currentSection() == YearSection) {
        typeIntoYear(digit);
    } else {
        typeIntoPart(digit);
    }
    typedDate_ = date();
}

/// If the year is complete, Qt takes a digit only while the year is selected. No year begins with
/// 0.
void DateTimeEdit::typeIntoYear(int digit) {
    const auto isWhole = [this] { return text() == QDateTimeEdit::textFromDateTime(dateTime()); };
    const bool isFirst = isWhole() || sectionText(YearSection).isEmpty();
    if (isFirst && digit == 0) {
        return;
    }
    if (isWhole()) {
        setSelectedSection(YearSection);
    }
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_0 + digit, Qt::NoModifier, QString::number(digit));
    QDateTimeEdit::keyPressEvent(&typed);
    if (isWhole() && typedDay_ > 0) {
        setPart(DaySection, typedDay_);
    }
}

/// Takes a digit of a two-digit part.
void DateTimeEdit::typeIntoPart(int digit) {
    const Section part = currentSection();
    const auto [least, most] = rangeOf(part);
    const bool isSecond = firstDigit_.has_value();
    const int value = firstDigit_.value_or(0) * 10 + digit;
    if (value > most || (isSecond && value < least)) {
        return;
    }
    if (part == DaySection) {
        typedDay_ = value;
    }
    if (value >= least) {
        setPart(part, value);
    }
    digitEndedPart_ = isSecond || value * 10 > most;
    const bool hasNext = currentSectionIndex() + 1 < sectionCount();
    setSelectedSection(digitEndedPart_ && hasNext ? sectionAt(currentSectionIndex() + 1) : part);
    firstDigit_ = digitEndedPart_ ? std::nullopt : std::optional(digit);
}

/// Cuts the day to the month's last day. Keeps the selected section.
void DateTimeEdit::setPart(Section part, int value) {
    const Section section = currentSection();
    if (part == DaySection || part == MonthSection) {
        const QDate first(date().year(), part == MonthSection ? value : date().month(), 1);
        const int dayOfMonth = typedDay_ > 0 ? typedDay_ : date().day();
        const int day = part == DaySection ? value : dayOfMonth;
        setDate(first.addDays(std::min(day, first.daysInMonth()) - 1));
    } else {
        setTime(QTime(part == HourSection ? value : time().hour(),
                      part == MinuteSection ? value : time().minute(),
                      part == SecondSection ? value : time().second()));
    }
    setSelectedSection(section);
}

/// Tab leaves the field; the arrow keys go from part to part.
bool DateTimeEdit::focusNextPrevChild(bool next) {
    // With Tab, QDateTimeEdit's own version would go from part to part.
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace kvex::qt
