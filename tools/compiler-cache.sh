# SPDX-License-Identifier: MIT
# What has been compiled once is kept in build/ccache. Read in at the root of the tree.
export CCACHE_DIR=${CCACHE_DIR:-$PWD/build/ccache}
export CCACHE_SLOPPINESS=pch_defines,time_macros  # without it ccache leaves out what uses a precompiled header
export CCACHE_DEPEND=1                            # the compiler says what it has read: nothing is preprocessed just to know it
