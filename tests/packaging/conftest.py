# SPDX-FileCopyrightText: 2026 The Morvane makers
# SPDX-License-Identifier: MIT
"""The build under test, and an installation of it."""

import os
import re
import subprocess
from pathlib import Path

import pytest

PROJECT = Path(__file__).resolve().parents[2]


def pytest_addoption(parser):
    parser.addoption("--build", type=Path, required=True, help="the directory of the build")


@pytest.fixture(scope="session")
def project():
    return PROJECT


@pytest.fixture(scope="session")
def build(request):
    return request.config.getoption("--build").resolve()


@pytest.fixture(scope="session")
def version():
    """The version, from the one file that defines it."""
    text = (PROJECT / "CMakeLists.txt").read_text()
    return re.search(r"^project\(morvane VERSION ([0-9.]+)", text, re.M).group(1)


def install(build, prefix, directory):
    """Installs with the directory as the root; returns the messages."""
    result = subprocess.run(["cmake", "--install", build, "--prefix", prefix, "--strip"],
                            env=dict(os.environ, DESTDIR=str(directory)), check=True,
                            capture_output=True, text=True)
    return result.stderr


@pytest.fixture(scope="session", params=["/usr", "/usr/local"])
def installed(request, build, tmp_path_factory):
    """The prefix, and the directory in which the game was installed for it."""
    directory = tmp_path_factory.mktemp("installed")
    remarks = install(build, request.param, directory)
    assert remarks == ""
    return request.param, directory / request.param.lstrip("/")
