"""The checks and tools of the project that no ready-made tool does; scripts/check and its neighbours start them."""
