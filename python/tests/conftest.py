# SPDX-License-Identifier: MIT
"""The same examples in each run, whatever the load of the machine, and no files left behind."""

from hypothesis import settings

settings.register_profile("quandrel", database=None, derandomize=True, deadline=None, max_examples=200)
settings.load_profile("quandrel")
