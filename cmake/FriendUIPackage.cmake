# What `cmake --install` puts where, and what `cpack` makes of it: a ZIP and an installer on
# Windows, an archive elsewhere.
#
# The programs look for the module, pictures and texts beside themselves, so all lies in one
# folder: the package itself on Windows, a folder of its own elsewhere.

include(GNUInstallDirs)
if(WIN32)
    set(home .)
    set(documents .)
else()
    set(home "${CMAKE_INSTALL_LIBDIR}/friendui")
    set(documents "${CMAKE_INSTALL_DOCDIR}")
endif()

if(FRIENDUI_HOST)
    install(TARGETS friendui-host friendui-backend RUNTIME DESTINATION "${home}")
    if(NOT WIN32)
        install(CODE "
            set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
            file(MAKE_DIRECTORY \"\${bin}\")
            file(CREATE_LINK \"../${home}/friendui-host\" \"\${bin}/friendui-host\" SYMBOLIC)
            message(STATUS \"Installing: \${bin}/friendui-host\")")
    endif()
endif()
install(TARGETS FriendUI LIBRARY DESTINATION "${home}")
if(TARGET FriendUIWeb)
    install(TARGETS FriendUIWeb LIBRARY DESTINATION "${home}")
endif()
install(DIRECTORY Resources DESTINATION "${home}"
    FILES_MATCHING PATTERN "*.png" PATTERN "*.gif" PATTERN "*.xml" PATTERN svg EXCLUDE)
install(DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/translations" DESTINATION "${home}"
    FILES_MATCHING PATTERN "*.qm")
install(FILES README.md CHANGELOG.md LICENSE DESTINATION "${documents}")
install(DIRECTORY docs DESTINATION "${documents}")

if(WIN32)
    install(FILES ${FRIENDUI_RUNTIME_DLLS} DESTINATION "${home}")
    foreach(plugin ${FRIENDUI_RUNTIME_PLUGINS})
        friendui_plugin_folder(folder ${plugin})
        install(FILES "$<TARGET_FILE:${plugin}>" DESTINATION "${home}/${folder}")
    endforeach()
    install(FILES cmake/windows/qt.conf DESTINATION "${home}")
    # Qt's own texts, such as those of the buttons of dialogs.
    install(FILES "${Qt5_DIR}/../../../translations/qtbase_zh_CN.qm"
        DESTINATION "${home}/translations" OPTIONAL)
    foreach(library ${FRIENDUI_COMPILER_DLLS})
        install(CODE "
            if(CMAKE_INSTALL_DO_STRIP)
                execute_process(COMMAND \"${CMAKE_STRIP}\"
                    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${home}/${library}\")
            endif()")
    endforeach()
    if(MSVC)
        set(CMAKE_INSTALL_SYSTEM_RUNTIME_DESTINATION "${home}")
        include(InstallRequiredSystemLibraries)
    endif()
endif()

set(CPACK_PACKAGE_NAME FriendUI)
set(CPACK_PACKAGE_VENDOR FriendUI)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "Contacts pane of a desktop messaging client, with a reference host")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    find_program(MAKENSIS makensis)
    if(MAKENSIS)
        list(APPEND CPACK_GENERATOR NSIS)
    else()
        message(STATUS "makensis is missing: cpack makes no installer")
    endif()
    # CPack finds the script of the installer, NSIS.template.in, there.
    list(APPEND CMAKE_MODULE_PATH "${PROJECT_SOURCE_DIR}/cmake/windows")
    set(CPACK_NSIS_MUI_ICON "${PROJECT_SOURCE_DIR}/cmake/windows/friendui.ico")
else()
    set(CPACK_GENERATOR TGZ)
endif()
include(CPack)
