SHELL := /bin/bash
.DEFAULT_GOAL := help
.PHONY: help setup run test sanitize fuzz bench reliability package pictures lint tidy clean
# Two of the commands at once would build in the same folder.
.NOTPARALLEL:

JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 60
RELIABILITY_KILLS ?= 200
RELIABILITY_SEED ?= 20261121
# Tests whose name matches; all if empty.
TESTS ?=
RULE_FILE ?= samples/milled-bracket.vrf

setup_packages := packaging/setup-debian.sh
ctest_filter = $(if $(TESTS),-R '$(TESTS)')

help:
	@echo 'make run        builds the program and starts it on a sample rule file (RULE_FILE=...)'
	@echo 'make test       builds and runs the tests (TESTS=<regular expression> for some of them)'
	@echo 'make sanitize   the same with address, leak and undefined-behaviour checks'
	@echo 'make fuzz       runs every fuzz target for FUZZ_SECONDS=60'
	@echo 'make bench      runs the benchmarks'
	@echo 'make reliability  ends RELIABILITY_KILLS=200 processes while they save, and has saves fail'
	@echo 'make package    makes the archive that users and module makers get'
	@echo 'make pictures   makes the pictures of the windows in docs/images/ again'
	@echo 'make lint       checks format, layering, scripts and build lists, and runs clang-tidy'
	@echo 'make tidy       clang-tidy alone'
	@echo 'make setup      installs the packages for all of these'
	@echo 'make clean      removes the build folder'
	@echo
	@echo 'Each installs the Debian packages that it misses, and says which. JOBS=<n> limits how'
	@echo 'much is done at a time.'

setup:
	@$(setup_packages) all

run:
	@$(setup_packages) run
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS)
	cmake/run-program.sh build/release/stage $(RULE_FILE) build/screenshot.png

test sanitize:
	@$(setup_packages) $@
	@rm -f build/$@/tests.xml
	cmake --preset $@
	cmake --build --preset $@ --parallel $(JOBS)
	ctest --preset $@ --parallel 2 --output-junit $(CURDIR)/build/$@/tests.xml $(ctest_filter)

fuzz:
	@$(setup_packages) fuzz
	@rm -f build/fuzz/fuzz-results.txt
	cmake --preset fuzz
	cmake --build --preset fuzz --parallel $(JOBS)
	cmake/run-fuzzers.sh build/fuzz $(FUZZ_SECONDS)

bench:
	@$(setup_packages) bench
	cmake --preset release -DVANTREL_BUILD_BENCHMARKS=ON
	cmake --build --preset release --parallel $(JOBS) --target all benchmarks
	cmake/run-benchmarks.sh build/release

reliability:
	@$(setup_packages) test
	cmake --preset test
	cmake --build --preset test --parallel $(JOBS) --target RuleFileSaver
	tests/Program/reliability.py build/test/tests/Program/RuleFileSaver \
		--count $(RELIABILITY_KILLS) --seed $(RELIABILITY_SEED)

package:
	@$(setup_packages) package
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS)
	cpack --config build/release/CPackConfig.cmake

pictures:
	@$(setup_packages) test
	cmake --preset release
	cmake --build --preset release --parallel $(JOBS)
	VANTREL_SCREEN=2560x1600x24 cmake/with-display.sh docs/make_pictures.py build/release/stage docs/images

lint:
	@$(setup_packages) lint
	packaging/lint.py --jobs $(JOBS)

tidy:
	@$(setup_packages) lint
	packaging/lint.py --jobs $(JOBS) tidy

clean:
	rm -rf build
