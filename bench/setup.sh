# Sourced by the scripts of this folder: builds the benchmarks and installs what they need.
. tools/setup.sh

bench_programs=(bare_plugin bare_plugin_with_libraries bench_gauges bench_parts bench_pass
    bench_recording bench_refresh plugin_meter QtSystemMonitor)

prepare_benchmarks() {
    install_packages "${build_packages[@]}" "${run_packages[@]}" "${test_packages[@]}" libbenchmark-dev
    build bench "${bench_programs[@]}"
}

# The Node plugin with its packages, beside the benchmarks.
prepare_peers() {
    local packages=(python3-psutil) folder=build/bench/peers/node
    command -v node >/dev/null && command -v npm >/dev/null || packages+=(nodejs npm)
    install_packages "${packages[@]}"
    mkdir -p $folder
    cp bench/peers/node/* $folder/
    echo "Installing the packages of the Node plugin"
    (cd $folder && quietly npm install --no-package-lock --no-audit --no-fund)
}
