@echo off
rem install.cmd        registers the controls for everybody (as administrator)
rem install.cmd /user  registers them for you alone
rem The files stay where they are: move them only after remove.cmd.
setlocal
set "mode="
if /i "%~1"=="/user" (set "mode=/n /i:user") else if not "%~1"=="" goto usage

rem 64-bit and 32-bit programs have a registry, and a regsvr32, each of their own.
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wow=%SystemRoot%\SysWOW64"
if /i "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 goto only32

"%native%\regsvr32.exe" /s %mode% "%~dp0x64\VelmoraCalendar.ocx"
if errorlevel 1 goto failed
if exist "%wow%\regsvr32.exe" "%wow%\regsvr32.exe" /s %mode% "%~dp0x86\VelmoraCalendar.ocx"
if errorlevel 1 goto failed
goto done

:only32
"%native%\regsvr32.exe" /s %mode% "%~dp0x86\VelmoraCalendar.ocx"
if errorlevel 1 goto failed

:done
echo The Velmora calendar controls are registered.
exit /b 0

:failed
echo The controls could not be registered. For everybody it takes an administrator;
echo "install.cmd /user" needs no rights.
exit /b 1

:usage
echo usage: install.cmd [/user]
exit /b 2
