"""How assistive technology names the lists and boxes of the windows: by their labels."""

# The rules window and the rule editor.
RULES = "These rules will be applied to incoming short messages"
CONDITIONS = "1. Select the Conditions for your rule"
ACTIONS = "2. Select the Actions for your rule"
NAME = "4. Rule Name"

IGNORE_SERVICE = "Ignore this Rule for Service messages"
FROM_PEOPLE = "Where the message is From specified people"
THROUGH_ACCOUNTS = "Where the message is received through specified Accounts"
CONTAINS_WORDS = "Where the message content contains specified Words"
WITHIN_DATES = "Where the message is received within specified Date/Time"
DISTRIBUTE = "Distribute to specific users"
REPLY = "Send an Automatic Reply"
ALERT = "Send an Alert to specified people"
DELETE = "Delete it"
STOP = "Do not process any more Rules"

# The dialogs of conditions and actions.
PEOPLE = "People"
SELECTED_PEOPLE = "Selected people"
AS_COMMAND = "As SMS Command (match from left)"
SELECTED_WORDS = "Selected words"
ACCOUNTS = "Accounts"
SELECTED_ACCOUNTS = "Selected Accounts"
USERS = "Available users"
SELECTED_USERS = "Selected users for distribution"
REPLY_TEXT = "Type the Message that you want to send as Reply"
REPLY_ACCOUNT = "2. Select the Account to be used for sending the Reply"
ALERT_TEXT = "1. Type the Alert Text"
ALERT_ACCOUNT = "2. Select the Account to be used for sending the Alert"
RECIPIENTS = "Alert Recipients"
SELECTED_RECIPIENTS = "Selected recipients"

# The address book.
FIND = "Find"
CONTACTS = "Contacts"
