# Entry points for a fresh Debian 12 machine (run as root): each target installs what is missing first.
.PHONY: all deps build demo test test-sanitize coverage fuzz bench package clean

all: build

deps:
	@scripts/install-deps.sh

build: deps
	cmake --preset default
	cmake --build --preset default

demo: build
	scripts/demo.sh build/default/bin out/demo

test: build
	ctest --preset default

test-sanitize: deps
	cmake --preset sanitize
	cmake --build --preset sanitize
	ctest --preset sanitize

# The suite once more with gcc coverage, one test at a time (processes ending together spoil each
# other's counts), then line and branch coverage of report/ and host/ (reports in build/coverage/:
# coverage.txt, coverage.json, html/index.html). COVERAGE_BEFORE=FILE.json
# (an earlier coverage.json) also lists the lines of report/ that run covered and this one does not.
coverage: deps
	cmake --preset coverage
	cmake --build --preset coverage
	find build/coverage -name '*.gcda' -delete
	ctest --preset coverage
	scripts/coverage.sh build/coverage $(COVERAGE_BEFORE)

# The template fuzz targets (clang, ASan and UBSan), each run for FUZZ_SECONDS; FUZZ_JOBS=3 runs
# them side by side. Findings land in build/fuzz/findings/ and fail the target.
FUZZ_SECONDS ?= 60
fuzz: deps
	cmake --preset fuzz
	cmake --build --preset fuzz
	scripts/fuzz.sh $(FUZZ_SECONDS)

# The Debian package of everything installed (apt-get install ./build/package/coagulation-report_*.deb).
package: deps
	cmake --preset package
	cmake --build --preset package
	cpack --preset package
	@ls -1 $(CURDIR)/build/package/*.deb

# Release build of the benchmarks, then one table of measured ratios (a few minutes).
bench: deps
	cmake --preset release
	cmake --build --preset release --target coagulation-bench
	build/release/bin/coagulation-bench

clean:
	rm -rf build out
