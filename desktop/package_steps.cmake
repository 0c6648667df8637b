# The last steps before the package is packed: sections that nothing reads are removed, and the packages that ours
# depends on are found.
file(GLOB binaries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/* ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/lib/requite/*)
execute_process(COMMAND strip --strip-unneeded --remove-section=.comment --remove-section=.note ${binaries}
                COMMAND_ERROR_IS_FATAL ANY)

# The packages that ours depends on: those of the libraries that the executables are linked to, and those of the
# libraries that they load when they are needed (src/platform/late_library.h). The web views' library does not
# count: the program runs without a browser, which is therefore only recommended.
file(GLOB programs ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/*
     ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/lib/requite/requite-locale.so)
set(folder ${CPACK_TOPLEVEL_DIRECTORY}/depends)
file(WRITE ${folder}/debian/control "Source: requite\n\nPackage: requite\nArchitecture: any\n")
execute_process(
  COMMAND dpkg-shlibdeps -O ${programs}
  WORKING_DIRECTORY ${folder}
  OUTPUT_VARIABLE depends OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "shlibs:Depends=" "" CPACK_DEBIAN_PACKAGE_DEPENDS "${depends}")
string(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS ", libcurl4 (>= 7.88), libsqlite3-0 (>= 3.40), libssl3 (>= 3.0)")
