"""What the scripts of the games share."""
