@echo off
rem test.cmd [machine]: see README.txt
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" goto wide
"%~dp0x86\run_tests.exe" %*
exit /b %errorlevel%
:wide
"%~dp0x64\run_tests.exe" %*
exit /b %errorlevel%
