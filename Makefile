# The two commands of the project. Each installs what is missing, configures, builds and runs.
.PHONY: test demo bench

test:
	./scripts/install-deps
	cmake --preset release
	cmake --build --preset release
	ctest --preset release
	cmake --preset asan
	cmake --build --preset asan
	ctest --preset asan
	./scripts/check-format

demo:
	./scripts/install-deps
	cmake --preset release
	cmake --build --preset release --target ravelin_demo
	./build/release/examples/ravelin_demo

bench:
	./scripts/install-deps bench
	cmake --preset bench
	cmake --build --preset bench
	./build/bench/bench/combine_benchmark
	./build/bench/bench/skeleton_benchmark
	./build/bench/bench/offset_benchmark
	./build/bench/bench/extendex_benchmark
