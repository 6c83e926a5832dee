// A QDateTimeEdit that can be empty. Tab leaves it. The user can type a date with or without
// separators. A separator, or the last digit of a part, moves to the next part. Ctrl with Left or
// Right also changes the part. After Ctrl+A the first digit goes to the first part. Its values are
// in UTC, so that every day has all its hours in every time zone.
#pragma once

#include <QDateTimeEdit>

#include <optional>

namespace kvex::qt {

class DateTimeEdit final : public QDateTimeEdit {
public:
    DateTimeEdit(QWidget *parent, const QString &format);

    /// Shows `value`, or nothing if it is not valid.
    void show(const QDateTime &value);

    [[nodiscard]] QSize sizeHint() const override;

    QValidator::State validate(QString &text, int &position) const override;

protected:
    [[nodiscard]] QString textFromDateTime(const QDateTime &value) const override;
    [[nodiscard]] QDateTime dateTimeFromText(const QString &text) const override;
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    [[nodiscard]] QDateTime wholeValue(const QString &text) const;
    [[nodiscard]] bool isYearBegun(const QString &text) const;
    void goToPart(int step);
    void typeDigit(int digit);
    void typeIntoYear(int digit);
    void typeIntoPart(int digit);
    void setPart(Section part, int value);

    bool empty_ = false;
    /// The first digit of a two-digit part, until the user types the second.
    std::optional<int> firstDigit_;
    /// The last key was a digit and ended its part.
    bool digitEndedPart_ = false;
    /// The day that the user typed last, or 0; and the date after the last digit.
    int typedDay_ = 0;
    QDate typedDate_;
};

} // namespace kvex::qt
