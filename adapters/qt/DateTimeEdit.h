// A QDateTimeEdit that can show nothing, that Tab leaves, and that takes every date as it is typed:
// with separators or without. A part ends with its last digit or a separator; Ctrl with an arrow
// key changes it too, and after Ctrl+A the first digit is that of the first part.
// Its values are in UTC, whatever the system's time zone: no hour is missing on any day.
#pragma once

#include <QDateTimeEdit>

#include <optional>

namespace kvex::qt {

class DateTimeEdit final : public QDateTimeEdit {
public:
    DateTimeEdit(QWidget *parent, const QString &format);

    /// Shows `value`, or nothing while it is not valid.
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
    /// The first digit of a part of two, until the second is typed.
    std::optional<int> firstDigit_;
    /// The digit typed just now was its part's last.
    bool digitEndedPart_ = false;
    /// The day typed last, 0 for none, and the date that it and what was typed after it made.
    int typedDay_ = 0;
    QDate typedDate_;
};

} // namespace kvex::qt
