# The library keeps its install tree (string tables, the technology database configuration) in the
# folder of its own module file, which it finds through dladdr and resolves through symbolic links.
# The package therefore puts the library and that tree together in lib/KELSHAREu/; in the build
# tree the same folder holds the library and links to the source tree's data/.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(ORV_PACKAGE_LIBDIR ${CMAKE_INSTALL_LIBDIR}/KELSHAREu)
set(ORV_PACKAGE_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/KELSHAREu)
set(ORV_PACKAGE_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/KELSHAREu)

set(build_libdir ${CMAKE_BINARY_DIR}/lib/KELSHAREu)
set_target_properties(KELSHAREu PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${build_libdir})
file(MAKE_DIRECTORY ${build_libdir})
file(GLOB data_entries RELATIVE ${CMAKE_SOURCE_DIR}/data ${CMAKE_SOURCE_DIR}/data/*)
foreach(entry IN LISTS data_entries)
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/data/${entry} ${build_libdir}/${entry} SYMBOLIC)
endforeach()

# The public headers: every module of the port (<afx.h>, <windows.h>, mfc/, win/, port/), the
# geometry types and the library's folders, all under one include folder.
target_include_directories(KELSHAREu INTERFACE $<INSTALL_INTERFACE:${ORV_PACKAGE_INCLUDEDIR}>)
file(GLOB port_modules LIST_DIRECTORIES true ${CMAKE_SOURCE_DIR}/port/include/*)
foreach(module IN LISTS port_modules)
    install(DIRECTORY ${module}/ DESTINATION ${ORV_PACKAGE_INCLUDEDIR})
endforeach()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/geometry/ DESTINATION ${ORV_PACKAGE_INCLUDEDIR}/geometry
        FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/ DESTINATION ${ORV_PACKAGE_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

install(TARGETS KELSHAREu EXPORT KELSHAREuTargets LIBRARY DESTINATION ${ORV_PACKAGE_LIBDIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/ DESTINATION ${ORV_PACKAGE_LIBDIR})

# The programs find the library beside the install tree.
set_target_properties(orvhost PROPERTIES INSTALL_RPATH "$ORIGIN/../${ORV_PACKAGE_LIBDIR}")
install(TARGETS orvhost orvreg RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# find_package(KELSHAREu CONFIG) with the imported target KELSHAREu::KELSHAREu.
install(EXPORT KELSHAREuTargets NAMESPACE KELSHAREu:: DESTINATION ${ORV_PACKAGE_CMAKEDIR})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/KELSHAREuConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/KELSHAREuConfig.cmake
                              INSTALL_DESTINATION ${ORV_PACKAGE_CMAKEDIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/KELSHAREuConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/KELSHAREuConfig.cmake
              ${CMAKE_BINARY_DIR}/KELSHAREuConfigVersion.cmake
        DESTINATION ${ORV_PACKAGE_CMAKEDIR})

# KELSHAREu.pc, relocatable: its prefix is found from its own folder.
file(RELATIVE_PATH ORV_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${CMAKE_SOURCE_DIR}/cmake/KELSHAREu.pc.in ${CMAKE_BINARY_DIR}/KELSHAREu.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/KELSHAREu.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
