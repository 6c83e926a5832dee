#include "host/kvexrules/SampleData.h"

namespace kvex::host {

const char *sampleData() {
    return R"SQL(
INSERT INTO SMS_USERS (ID, NAME) VALUES
    (1, 'SYSTEM'),
    (2, 'Asha Rao'),
    (3, 'Ravi Kumar'),
    (4, 'प्रिया शर्मा'),
    (5, 'Zoë O''Neill'),
    (6, 'Night shift 🌙'),
    (7, 'Meera Nair');

INSERT INTO SMS_ACCOUNT (ID, NAME, BIND_MODE) VALUES
    (1, 'Main line', 'TRANSCEIVER'),
    (2, 'Bulk sending', 'TRANSMITTER'),
    (3, 'Short code 56070', 'RECEIVER'),
    (4, 'दिल्ली कार्यालय', 'TRANSCEIVER'),
    (5, 'Old modem 📟', 'transceiver');

INSERT INTO SMS_SERVICE (ID, NAME, DISABLED) VALUES
    (1, 'Weather', 0),
    (2, 'Account balance', 0),
    (3, 'Competition', 1);

INSERT INTO SMS_SERVICECOMMANDS (ID, SERVICE_ID, NAME) VALUES
    (1, 1, 'WEATHER'),
    (2, 1, 'RAIN'),
    (3, 2, 'BALANCE'),
    (4, 3, 'WIN');

INSERT INTO SMS_CONTACTS (ID, USER_ID, NAME, MOBILE) VALUES
    (1, 1, 'Branch office', '9811100011'),
    (2, 1, 'Field engineer', '9811100022'),
    (3, 1, 'अनिल गुप्ता', '9811100033'),
    (4, 1, 'Duty officer 🚨', '9811100044'),
    (5, 2, 'José Müller', '9811100055');

INSERT INTO SMS_RULES (ID, Name, QueryParam, ActionParam, PRIORITY, ACTIVE) VALUES
    (1, 'Not stopped in March',
     '<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><CON><ANY>9811100011;9811100022</PEOPLE><WORD><NOT><ALL><ASCOMMAND>STOP;HALT</WORD><DATETIME>20240301 09:00:00,20240331 18:30:00</DATETIME>',
     '<DIST>3;7</DIST><REPLY>Received;2</REPLY><ALERT>New message;2;9811100033;9811100044</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>',
     1, 1),
    (2, 'Help 🌙 at night',
     '<IGNOREIFSERVICE>YES</IGNOREIFSERVICE><WORD><CON><ANY>help;मदद;🆘</WORD>',
     '<DIST>6;5</DIST><REPLY>आपका संदेश मिला। We call back in the morning 🌙;4</REPLY><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>',
     2, 1),
    (3, 'दिल्ली के संदेश',
     '<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><ACCOUNT><CON><ANY>4;5</ACCOUNT>',
     '<DIST>4</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>',
     3, 1),
    (4, 'Strangers',
     '<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><PEOPLE><NOT><ALL>9811100011;9811100022;9811100055</PEOPLE><ACCOUNT><NOT><ALL>1;3</ACCOUNT>',
     '<ALERT>Message from a stranger;1;9811100044</ALERT><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>',
     4, 1),
    (5, 'Advertisements',
     '<IGNOREIFSERVICE>NO</IGNOREIFSERVICE><WORD><CON><ALL>offer;free</WORD>',
     '<DELETE>YES</DELETE><IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>',
     5, 0),
    (6, 'No services',
     '<IGNOREIFSERVICE>YES</IGNOREIFSERVICE>',
     '<DIST>2</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>',
     6, 1),
    (7, 'Everything to the system',
     '<ALLMESSAGES>',
     '<DIST>1</DIST><DELETE>NO</DELETE><IGNOREFURTHERRULES>NO</IGNOREFURTHERRULES>',
     7, 1);
)SQL";
}

} // namespace kvex::host
