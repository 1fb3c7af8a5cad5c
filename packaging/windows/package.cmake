# What the folder for Windows holds besides: how to start, and the licences of what is linked into the programs.
install(FILES packaging/windows/README.txt DESTINATION . ${portable})
install(FILES packaging/windows/licences.txt DESTINATION documents/licences RENAME README.txt ${portable})
install(DIRECTORY $ENV{BRINDLE_QT_WINDOWS}/licences/ DESTINATION documents/licences ${portable})
install(FILES /usr/share/doc/mingw-w64-x86-64-dev/copyright DESTINATION documents/licences
  RENAME mingw-w64-copyright.txt ${portable})
install(FILES /usr/share/doc/g++-mingw-w64-x86-64-posix/copyright DESTINATION documents/licences
  RENAME gcc-mingw-w64-copyright.txt ${portable})
