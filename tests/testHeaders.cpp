/// Nothing but what the test programs read beforehand.
