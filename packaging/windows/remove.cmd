@echo off
rem remove.cmd        undoes install.cmd (as administrator)
rem remove.cmd /user  undoes install.cmd /user
setlocal
set "mode="
if /i "%~1"=="/user" (set "mode=/n /i:user") else if not "%~1"=="" goto usage

rem 64-bit and 32-bit programs have a registry, and a regsvr32, each of their own.
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wow=%SystemRoot%\SysWOW64"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 goto only32

"%native%\regsvr32.exe" /s /u %mode% "%~dp0x64\VelmoraCalendar.ocx"
if errorlevel 1 goto failed
if exist "%wow%\regsvr32.exe" "%wow%\regsvr32.exe" /s /u %mode% "%~dp0x86\VelmoraCalendar.ocx"
if errorlevel 1 goto failed
goto done

:only32
"%native%\regsvr32.exe" /s /u %mode% "%~dp0x86\VelmoraCalendar.ocx"
if errorlevel 1 goto failed

:done
echo The Velmora calendar controls are no longer registered.
exit /b 0

:failed
echo The registration could not be removed. For everybody it takes an administrator;
echo "remove.cmd /user" needs no rights.
exit /b 1

:usage
echo usage: remove.cmd [/user]
exit /b 2
