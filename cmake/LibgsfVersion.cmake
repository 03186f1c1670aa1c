# Run by cpack before it looks up the packages of the libraries. Of libgsf the build that mends the known overflows of the
# compound-file reader is needed, which its interface does not tell.
file(WRITE "${CPACK_TEMPORARY_DIRECTORY}/debian/shlibs.local" "libgsf-1 114 libgsf-1-114 (>= 1.14.50-1+deb12u1)\n")
