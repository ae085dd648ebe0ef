# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The build that is being tested."""

import pytest

from house_test import PROJECT


def pytest_addoption(parser):
    parser.addoption("--build", default=str(PROJECT / "build/test"))


@pytest.fixture
def build(request):
    return request.config.getoption("--build")
