# SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
# SPDX-License-Identifier: MIT
#
# What is left of a sheet that is packed, by the script PACK in the folder FOLDER.
cmake_policy(VERSION 3.25)

set(sheet [==[
/* A comment; with { a "rule" } and *stars* */
QMenu , QMenu::item:selected > QLabel ,
QMenu QLabel/* here */:hover {
    padding : 3px  5px ;  /* ; } */
    font-family: "It's;  /* no */ \" comment" , 'A  \' {B}' ;
    image: url( :/a  b/"c ) d".png ) ;
    border-image: url(:/resources/images/a.png) 3 4;
    color: rgba( 1 , 2 , 3 , 50% );
}
QLabel[text = "a ; b }"] ::sub { margin: -1px -2px;}
QFrame#line{}
]==])
string(CONCAT wanted
    "QMenu,QMenu::item:selected > QLabel,QMenu QLabel :hover{padding :3px 5px;"
    [==[font-family:"It's;  /* no */ \" comment",'A  \' {B}';]==]
    [==[image:url( :/a  b/"c ) d".png );border-image:url(:/resources/images/a.png) 3 4;]==]
    "color:rgba(1,2,3,50%)}"
    [==[QLabel[text = "a ; b }"] ::sub{margin:-1px -2px}QFrame#line{}]==]
    "\n")

file(WRITE "${FOLDER}/sheet.css" "${sheet}")
execute_process(COMMAND "${CMAKE_COMMAND}" "-DSHEET=${FOLDER}/sheet.css"
    "-DPACKED=${FOLDER}/packed.css" -P "${PACK}" COMMAND_ERROR_IS_FATAL ANY)
file(READ "${FOLDER}/packed.css" packed)
if(NOT packed STREQUAL wanted)
    message(FATAL_ERROR "packed:\n${packed}wanted:\n${wanted}")
endif()

file(WRITE "${FOLDER}/open.css" "QLabel { } /* never ends")
execute_process(COMMAND "${CMAKE_COMMAND}" "-DSHEET=${FOLDER}/open.css"
    "-DPACKED=${FOLDER}/packed.css" -P "${PACK}" RESULT_VARIABLE result ERROR_QUIET)
if(result EQUAL 0)
    message(FATAL_ERROR "A comment without an end was packed")
endif()
