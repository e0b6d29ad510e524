# Set-up and everyday commands. Each target installs what is missing first, so a fresh
# Debian 12 machine needs nothing but `make demo` or `make check`.
PRESET ?= default
BUILD_DIR ?= build
FUZZ_SECONDS ?= 60

.PHONY: all deps configure build check demo bench fuzz format translations clean usb-shell \
	package package-check mutation

all: build

deps:
	@./scripts/install-deps.sh

configure: deps
	@if [ ! -f $(BUILD_DIR)/build.ninja ]; then cmake --preset $(PRESET); fi

build: configure
	cmake --build --preset $(PRESET)

check: build
	./scripts/run-tests.sh $(BUILD_DIR)
	$(MAKE) package-check

# The Debian package, built from the same tree, and its check by Debian's own tools.
package: build
	cmake --build --preset $(PRESET) --target package

package-check: package
	./scripts/package-check.sh $(BUILD_DIR)

demo: build
	./scripts/demo.sh $(BUILD_DIR)

# A shell in the QEMU guest that tests the real USB path, with the virtual USB printer plugged in.
usb-shell: build
	./scripts/usb-guest/shell.sh $(BUILD_DIR)

# How many small planted faults the tests catch: the same seed plants the same faults, so a
# score before and after a change to the tests compares like with like. The guest's USB suite
# is left out: it would make every one of the forty runs minutes longer.
MUTATION_SAMPLE ?= ../shared/tools/mutation-sample
mutation: build
	xvfb-run -a -s "-screen 0 1280x1024x24 -nolisten tcp" $(MUTATION_SAMPLE) --build $(BUILD_DIR) \
		--count 40 --seed 1 --ctest "-LE kernel-usb" src

bench: build
	./scripts/run-bench.sh $(BUILD_DIR)

fuzz: deps
	@if [ ! -f build-fuzz/build.ninja ]; then cmake --preset fuzz; fi
	cmake --build --preset fuzz
	./scripts/run-fuzz.sh build-fuzz $(FUZZ_SECONDS)

translations: deps
	/usr/lib/qt6/bin/lupdate -locations none -no-obsolete src -ts share/tr/tav-de.ts

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf build build-debug build-fuzz
