# Contavia: the two commands of the README, and a few for developers.
#   make run    installs what is missing, builds, starts the desktop program
#   make test   installs what is missing, builds, runs every test

BUILD ?= build
BUILD_ASAN ?= build-asan
BUILD_FUZZ ?= build-fuzz
FUZZ_SECONDS ?= 3600
JOBS ?= $(shell nproc)
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps configure build run test test-sanitize fuzz fuzz-short lint format bench package clean

all: build

deps:
	./scripts/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) $(CMAKE_FLAGS)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./scripts/run.sh $(BUILD)/bin/contavia

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The same tests under AddressSanitizer and UndefinedBehaviorSanitizer.
test-sanitize: deps
	cmake -S . -B $(BUILD_ASAN) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCONTAVIA_SANITIZE=ON -DCONTAVIA_BENCH=OFF
	cmake --build $(BUILD_ASAN) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	  ctest --test-dir $(BUILD_ASAN) --output-on-failure -j $(JOBS)

# The fuzzers of the archive and of the guide's reader (libFuzzer, clang): FUZZ_SECONDS each,
# their corpora kept in $(BUILD_FUZZ)/corpus* from one run to the next (the guide's seeded with
# the shipped topics). `fuzz-short` is the minute each that the CI runs.
fuzz: deps
	cmake -S . -B $(BUILD_FUZZ) -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DCONTAVIA_FUZZ=ON -DCONTAVIA_UI=OFF -DCONTAVIA_BENCH=OFF -DCONTAVIA_TESTS=OFF
	cmake --build $(BUILD_FUZZ) -j $(JOBS) --target archive_fuzzer rtf_fuzzer
	mkdir -p $(BUILD_FUZZ)/corpus $(BUILD_FUZZ)/corpus-guida
	$(BUILD_FUZZ)/bin/archive_fuzzer -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
	  $(BUILD_FUZZ)/corpus
	$(BUILD_FUZZ)/bin/rtf_fuzzer -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
	  -max_len=65536 $(BUILD_FUZZ)/corpus-guida help/guida

fuzz-short:
	$(MAKE) fuzz FUZZ_SECONDS=60

# clang-tidy on the core (no Qt in it).
lint: configure
	./scripts/lint.sh $(BUILD)

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

# The Debian package of the program (build/contavia_VERSION_ARCH.deb).
package: build
	cmake --build $(BUILD) --target package

bench: build
	./scripts/bench.sh $(BUILD)

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ)
