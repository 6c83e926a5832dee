"""How assistive technology names the lists and boxes of the windows: by their labels."""

CONDITIONS = "1. Select the Conditions for your rule"
ACTIONS = "2. Select the Actions for your rule"
NAME = "4. Rule Name"
RULES = "These rules will be applied to incoming short messages"
