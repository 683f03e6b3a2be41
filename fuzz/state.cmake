# SPDX-License-Identifier: GPL-3.0-or-later
zolta_fuzzer(fuzz_state LIBRARIES zolta_hosting)
# The reader itself is compiled into the fuzzer, so that its branches guide the search.
target_sources(fuzz_state PRIVATE ${PROJECT_SOURCE_DIR}/hosting/StateFile.cpp)
