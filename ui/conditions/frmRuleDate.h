// The date and time condition: the range of time in which a message must arrive.
#pragma once

#include "platform/controls/DTPicker.h"
#include "ui/Form.h"

#include <string>

namespace kvex {

/// Reads strDateTime of this thread's rule when it opens, and writes it when OK succeeds.
class frmRuleDate final : public Form {
public:
    frmRuleDate();

private:
    void Form_Load() override;
    void FromDate_Change();
    void ToDate_Change();
    void FromTime_Change();
    void ToTime_Change();
    void cmdOK_Click();
    void cmdCancel_Click();
    /// Whether the pickers hold a range. If they do not, it shows a message that says why.
    [[nodiscard]] bool ValidateDates();
    void BuildString();

    DTPicker &FromDate;
    DTPicker &FromTime;
    DTPicker &ToDate;
    DTPicker &ToTime;

    /// The range that ValidateDates has read: "yyyymmdd" and "hh:mm:ss", or "" for no value.
    std::u16string strFromDate;
    std::u16string strFromTime;
    std::u16string strToDate;
    std::u16string strToTime;
    /// The time that a picker showed before it was emptied. A change of its date brings it back.
    std::u16string strSavedFromTime;
    std::u16string strSavedToTime;
};

/// What the window looks like.
[[nodiscard]] WindowDesign frmRuleDateDesign();

} // namespace kvex
