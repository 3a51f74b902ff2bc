# What the programs need beside them on Windows, and what Windows wants to know of them.
# Nothing here does anything elsewhere.

set(FRIENDUI_EXTRA_DLLS "" CACHE STRING
    "Further files beside the executables, such as the OpenSSL that a Qt without Schannel loads")
set(FRIENDUI_RUNTIME_DLLS ${FRIENDUI_EXTRA_DLLS}) # beside the executables
set(FRIENDUI_COMPILER_DLLS) # names of those among them that may hold debugging information
set(FRIENDUI_RUNTIME_PLUGINS) # targets of Qt's plug-ins; each lies in the folder of its kind

if(WIN32)
    enable_language(RC)
    foreach(library Core Gui Widgets Network Sql)
        list(APPEND FRIENDUI_RUNTIME_DLLS "$<TARGET_FILE:Qt5::${library}>")
    endforeach()
    get_target_property(type jsoncpp_lib TYPE)
    if(type STREQUAL "SHARED_LIBRARY")
        list(APPEND FRIENDUI_RUNTIME_DLLS "$<TARGET_FILE:jsoncpp_lib>")
    endif()

    set(FRIENDUI_RUNTIME_PLUGINS Qt5::QWindowsIntegrationPlugin Qt5::QSQLiteDriverPlugin
        Qt5::QJpegPlugin Qt5::QGifPlugin)
    # A Qt may be built without these; the programs then look plainer, or have no tour.
    foreach(plugin QOffscreenIntegrationPlugin QWindowsVistaStylePlugin QICOPlugin)
        if(TARGET Qt5::${plugin})
            list(APPEND FRIENDUI_RUNTIME_PLUGINS Qt5::${plugin})
        endif()
    endforeach()
endif()

if(MINGW)
    # Beside the compiler (Qt's own MinGW), or where it keeps its libraries (Debian's).
    get_filename_component(folder "${CMAKE_CXX_COMPILER}" DIRECTORY)
    foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
        execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${library}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        if(NOT EXISTS "${file}")
            find_file(FRIENDUI_${library} ${library} REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
                PATHS "${folder}" "${folder}/../x86_64-w64-mingw32/lib")
            mark_as_advanced(FRIENDUI_${library})
            set(file "${FRIENDUI_${library}}")
        endif()
        get_filename_component(file "${file}" REALPATH)
        list(APPEND FRIENDUI_RUNTIME_DLLS "${file}")
        list(APPEND FRIENDUI_COMPILER_DLLS "${library}")
    endforeach()
endif()

# friendui_plugin_folder(VARIABLE PLUGIN)
# Which folder beside the executables a plug-in of Qt is looked for in, such as platforms.
function(friendui_plugin_folder variable plugin)
    get_target_property(file ${plugin} LOCATION)
    get_filename_component(folder "${file}" DIRECTORY)
    get_filename_component(folder "${folder}" NAME)
    set(${variable} "${folder}" PARENT_SCOPE)
endfunction()

# The build folder's bin/ as a place to start programs from.
function(friendui_copy_runtime)
    if(NOT WIN32)
        return()
    endif()
    set(bin "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    set(stamp "${CMAKE_CURRENT_BINARY_DIR}/runtime.stamp")
    set(libraries ${FRIENDUI_RUNTIME_DLLS})
    set(plugins ${FRIENDUI_RUNTIME_PLUGINS})
    if(FRIENDUI_TESTS)
        list(APPEND libraries "$<TARGET_FILE:Qt5::Test>")
        if(TARGET Qt5::QMinimalIntegrationPlugin)
            list(APPEND plugins Qt5::QMinimalIntegrationPlugin)
        endif()
    endif()
    set(copies COMMAND "${CMAKE_COMMAND}" -E copy_if_different ${libraries} "${bin}")
    foreach(plugin ${plugins})
        friendui_plugin_folder(folder ${plugin})
        list(APPEND copies
            COMMAND "${CMAKE_COMMAND}" -E make_directory "${bin}/${folder}"
            COMMAND "${CMAKE_COMMAND}" -E copy_if_different
            "$<TARGET_FILE:${plugin}>" "${bin}/${folder}")
    endforeach()
    add_custom_command(OUTPUT "${stamp}" ${copies}
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        COMMENT "Copying the libraries of the run time" VERBATIM)
    add_custom_target(runtime ALL DEPENDS "${stamp}")
endfunction()

# friendui_windows_resources(TARGET DESCRIPTION)
# Version and, for a program, icon and manifest: what the file's properties show, and how
# Windows is to treat the process.
function(friendui_windows_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(windows "${PROJECT_SOURCE_DIR}/cmake/windows")
    set(RC_NAME ${target})
    set(RC_DESCRIPTION "${description}")
    string(REPLACE "." "," RC_NUMBERS "${PROJECT_VERSION}.0")
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "EXECUTABLE")
        set(RC_FILE "${target}.exe")
        set(RC_TYPE VFT_APP)
        set(RC_ICON_LINE "IDI_ICON1 ICON \"${windows}/friendui.ico\"")
        if(MSVC)
            target_sources(${target} PRIVATE "${windows}/friendui.manifest") # merged by the linker
        else()
            set(RC_MANIFEST_LINE "1 24 \"${windows}/friendui.manifest\"") # RT_MANIFEST
        endif()
    else()
        set(RC_FILE "${target}.dll")
        set(RC_TYPE VFT_DLL)
    endif()
    set(file "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${windows}/resources.rc.in" "${file}" @ONLY)
    set_source_files_properties("${file}" PROPERTIES
        OBJECT_DEPENDS "${windows}/friendui.ico;${windows}/friendui.manifest")
    target_sources(${target} PRIVATE "${file}")
endfunction()
