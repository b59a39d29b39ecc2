#!/usr/bin/env bash
# Debian packages the library, its tests and its tools need, plus any named as arguments. Quiet
# when all are present already; otherwise says so and installs them, with apt's output on stderr.
set -euo pipefail
# The Fast Infoset tests check against the reference implementation, a Java library whose converters
# they run from a Java source file: that takes a JDK, not only a runtime.
packages=(g++ cmake make pkg-config libexpat1-dev libpcre2-dev zlib1g-dev libgtest-dev libxml2-utils python3 libgmp-dev
    default-jdk-headless libfastinfoset-java "$@")
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "installing packages: ${missing[*]}..." >&2
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq >&2
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
fi
