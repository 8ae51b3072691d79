"""Checks and tools of the project for which there is no ready-made one; scripts/check and other scripts run them."""
