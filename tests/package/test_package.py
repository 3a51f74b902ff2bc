#!/usr/bin/env python3
"""The package for Windows: what is in it, and what its installer does.

    test_package.py CPACK BUILD WINE_RUN VERSION

Runs cpack in the build folder, unpacks the ZIP and lets the installer come, go and refuse, in
a Wine prefix of its own that knows no folder of the build.
"""
import os
import shutil
import struct
import subprocess
import sys
import time
import unittest
import zipfile
from pathlib import Path

CPACK, BUILD, WINE_RUN, VERSION = sys.argv[1:5]
WORK = Path(BUILD) / 'package-test'
UNINSTALL_KEY = r'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\FriendUI'
IN_USE, OLD_WINDOWS = 3, 4  # exit codes of the installer
PATIENCE = 60  # seconds

# What every Windows 10 has in its system folder.
SYSTEM_DLLS = set('''
    advapi32 authz bcrypt comctl32 comdlg32 crypt32 d3d11 dnsapi dwmapi dxgi gdi32 imm32 iphlpapi
    kernel32 mpr msvcrt ncrypt netapi32 ntdll ole32 oleaut32 secur32 shell32 shlwapi user32
    userenv uxtheme version winmm winspool ws2_32 wtsapi32
'''.split())


def wait_until(condition):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(0.2)
    return True


class PortableExecutable:
    """Exports, imports and kind of a 64-bit program or DLL."""

    GUI, CONSOLE = 2, 3

    def __init__(self, path):
        self.data = Path(path).read_bytes()
        header = self.number(0x3c, 'I')
        if self.data[header:header + 4] != b'PE\0\0' or self.number(header + 24, 'H') != 0x20b:
            raise ValueError(f'{path} is no 64-bit PE file')
        self.subsystem = self.number(header + 24 + 68, 'H')
        self.directories = header + 24 + 112
        first = header + 24 + self.number(header + 20, 'H')
        self.sections = [struct.unpack_from('<8sIIII', self.data, first + 40 * i)
                         for i in range(self.number(header + 6, 'H'))]

    def number(self, offset, kind):
        return struct.unpack_from('<' + kind, self.data, offset)[0]

    def place(self, address):
        for _, size, start, raw_size, raw in self.sections:
            if start <= address < start + max(size, raw_size):
                return raw + address - start
        raise ValueError(f'no section holds {address:#x}')

    def text(self, address):
        start = self.place(address)
        return self.data[start:self.data.index(b'\0', start)].decode('ascii')

    def directory(self, index):
        address = self.number(self.directories + 8 * index, 'I')
        return self.place(address) if address else None

    def exports(self):
        table = self.directory(0)
        if table is None:
            return []
        names = self.place(self.number(table + 32, 'I'))
        return [self.text(self.number(names + 4 * i, 'I'))
                for i in range(self.number(table + 24, 'I'))]

    def property(self, name):
        """What the version resource says."""
        start = self.data.index(f'{name}\0'.encode('utf-16-le'))
        text = self.data[start:start + 200].decode('utf-16-le', 'replace')
        return [part for part in text.split('\0') if part][1]

    def imports(self):
        found = set()
        for index, size, name in ((1, 20, 12), (13, 32, 4)):  # at the start, and when needed
            entry = self.directory(index)
            while entry is not None and self.number(entry + name, 'I'):
                found.add(self.text(self.number(entry + name, 'I')).lower())
                entry += size
        return found


class Wine:
    """A prefix and an X server, both made by tools/wine-run."""

    def __init__(self, folder):
        self.environment = {name: value for name, value in os.environ.items()
                            if name != 'WINEPATH' and not name.startswith('QT_')}
        self.environment['FRIENDUI_WINE'] = str(folder)
        self.wine_run('--prepare', '1')
        self.wine_run('winecfg', '-v', 'win10')
        self.drive = folder / '1/prefix/drive_c'
        self.environment.update(
            WINEPREFIX=str(folder / '1/prefix'), WINEDEBUG='-all', LANG='C.UTF-8',
            WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe=',
            DISPLAY=(folder / '1/display').read_text().strip())

    def wine_run(self, *arguments):
        subprocess.run([WINE_RUN, *arguments], env=self.environment, check=True,
                       stdout=subprocess.DEVNULL)

    def start(self, *command, **variables):
        return subprocess.Popen(['wine', *map(str, command)], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
                                errors='replace', env={**self.environment, **variables})

    def run(self, *command, **variables):
        process = self.start(*command, **variables)
        process.output, process.errors = process.communicate(timeout=2 * PATIENCE)
        return process

    def path(self, windows_path):
        return self.drive / windows_path[3:].replace('\\', '/')

    def end(self):
        self.wine_run('--end')


class Package(unittest.TestCase):
    """One story, in the order of the names of its parts."""

    FOLDER = 'C:\\程序 与 工具\\Friend UI'

    @classmethod
    def setUpClass(cls):
        shutil.rmtree(WORK, ignore_errors=True)
        WORK.mkdir()
        cls.make_packages()
        cls.wine = Wine(WORK / 'wine')
        cls.installed = cls.wine.path(cls.FOLDER)
        roaming = next(cls.wine.drive.glob('users/*/AppData/Roaming'))
        cls.shortcut = roaming / 'Microsoft/Windows/Start Menu/Programs/FriendUI.lnk'
        cls.data = roaming / 'friendui-host'

    @classmethod
    def tearDownClass(cls):
        cls.wine.end()
        shutil.rmtree(WORK / 'wine')  # hundreds of megabytes

    @classmethod
    def cpack(cls, *arguments):
        done = subprocess.run([CPACK, '--config', f'{BUILD}/CPackConfig.cmake', '-B',
                               str(WORK / 'packages'), *arguments], cwd=BUILD, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        if done.returncode:
            raise RuntimeError(done.stdout)

    @classmethod
    def make_packages(cls):
        # An older version, of little but a file that there is no more.
        old = WORK / 'old'
        (old / 'platforms' / 'weg').mkdir(parents=True)
        for name in ('platforms/weg/gone.dll', 'FriendUI.dll', 'friendui-host.exe'):
            (old / name).write_text('old')
        cls.cpack('-G', 'NSIS', '-D', 'CPACK_INSTALL_CMAKE_PROJECTS=',
                  '-D', f'CPACK_INSTALLED_DIRECTORIES={old};.',
                  '-D', 'CPACK_PACKAGE_VERSION=0.0.1', '-D', 'CPACK_PACKAGE_FILE_NAME=older')
        cls.cpack()
        name = f'FriendUI-{VERSION}-win64'
        cls.installer = WORK / 'packages' / (name + '.exe')
        cls.older = WORK / 'packages' / 'older.exe'
        with zipfile.ZipFile(WORK / 'packages' / (name + '.zip')) as archive:
            archive.extractall(WORK / '解压 到 这里')
        cls.unpacked = WORK / '解压 到 这里' / name

    # The installer takes the rest of its command line as the folder, with its blanks.
    def install(self, installer, *arguments):
        return self.wine.run(installer, '/S', *arguments)

    def version_installed(self):
        words = self.wine.run('reg', 'query', UNINSTALL_KEY, '/v', 'DisplayVersion').output.split()
        return words[-1] if 'REG_SZ' in words else None

    def files(self):
        return {str(file.relative_to(self.installed))
                for file in self.installed.rglob('*') if file.is_file()}

    def test_1_files(self):
        """The programs need nothing that is neither here nor in every Windows."""
        binaries = [*self.unpacked.rglob('*.dll'), *self.unpacked.rglob('*.exe')]
        present = {file.name.lower() for file in self.unpacked.iterdir()}
        self.assertGreater(len(binaries), 10)
        for file in binaries:
            missing = {name for name in PortableExecutable(file).imports()
                       if name not in present and name.split('.')[0] not in SYSTEM_DLLS}
            self.assertEqual(missing, set(), file.name)
        module = PortableExecutable(self.unpacked / 'FriendUI.dll')
        self.assertEqual(sorted(module.exports()), ['qt_plugin_instance', 'qt_plugin_query_metadata'])
        for name, kind in (('friendui-host.exe', PortableExecutable.GUI),
                           ('friendui-backend.exe', PortableExecutable.CONSOLE)):
            program = PortableExecutable(self.unpacked / name)
            self.assertEqual(program.subsystem, kind, name)
            self.assertIn(b'PerMonitorV2', program.data, name)
        for file in (module, program):
            self.assertEqual(file.property('FileVersion'), VERSION)
        for name in ('README.md', 'LICENSE', 'docs/licenses/texts/LGPL-3.txt',
                     'translations/friendui_zh_CN.qm', 'Resources/images/MainWindow/app.png'):
            self.assertTrue((self.unpacked / name).is_file(), name)

    def test_2_unpacked(self):
        """The ZIP is a program as it is, in a folder with Chinese characters and blanks."""
        host = self.unpacked / 'friendui-host.exe'
        said = self.wine.run(host, '--version')
        self.assertEqual((said.returncode, said.output.strip()), (0, f'friendui-host {VERSION}'))
        folder = WORK / '巡览'
        toured = self.wine.run(host, '--tour', f'Z:{folder}', '--tour-steps', 'start',
                               WINEQT_QPA_PLATFORM='windows')
        self.assertEqual(toured.returncode, 0, toured.output + toured.errors)
        pictures = list(folder.glob('*start*.png'))
        self.assertEqual(len(pictures), 1, list(folder.iterdir()))
        picture = pictures[0].read_bytes()
        width, height = struct.unpack_from('>II', picture, 16)
        self.assertGreater(min(width, height), 500)
        self.assertGreater(len(picture), 20000)  # an empty window of this size has a tenth of it

    def test_3_install_and_upgrade(self):
        """A new version replaces the older one, and leaves what is not its own."""
        self.wine.wine_run('winecfg', '-v', 'win7')
        self.assertEqual(self.install(self.older).returncode, OLD_WINDOWS)
        self.wine.wine_run('winecfg', '-v', 'win10')
        self.assertEqual(self.install(self.older, *f'/D={self.FOLDER}'.split(' ')).returncode, 0)
        self.assertIn('platforms/weg/gone.dll', self.files())
        self.assertEqual(self.version_installed(), '0.0.1')
        (self.installed / 'allurl.ini').write_text('[Hosts]\n')
        self.assertEqual(self.install(self.installer).returncode, 0)
        self.assertEqual(self.version_installed(), VERSION)
        packed = {str(file.relative_to(self.unpacked))
                  for file in self.unpacked.rglob('*') if file.is_file()}
        self.assertEqual(self.files() - packed, {'allurl.ini', 'uninstall.exe'})
        self.assertEqual(packed - self.files(), set())
        self.assertFalse((self.installed / 'platforms/weg').exists())
        self.assertTrue(self.shortcut.is_file())

    def test_4_running(self):
        """While the host runs, nothing is replaced or removed."""
        host = self.wine.start(self.FOLDER + '\\friendui-host.exe', WINEQT_QPA_PLATFORM='windows')
        self.addCleanup(host.kill)
        self.assertTrue(wait_until((self.data / 'backend/server.pem').exists), 'no back end')
        self.assertIsNone(host.poll())
        before = self.files()
        refused = self.install(self.installer)
        self.assertEqual(refused.returncode, IN_USE)
        self.assertIn('friendui-host.exe', refused.errors)
        uninstaller = self.FOLDER + '\\uninstall.exe'
        waiting = self.install(uninstaller, *f'_?={self.FOLDER}'.split(' '))
        self.assertEqual(waiting.returncode, IN_USE)
        self.assertEqual(self.files(), before)
        self.wine.run('taskkill', '/im', 'friendui-host.exe')
        host.communicate(timeout=PATIENCE)
        self.assertEqual(host.returncode, 0)

    def test_5_uninstall(self):
        """What was installed goes, and the user's own files stay."""
        kept = {file for file in self.data.rglob('*') if file.is_file()}
        self.assertGreater(len(kept), 3)
        self.install(self.FOLDER + '\\uninstall.exe')
        # It goes on as a copy of itself.
        self.assertTrue(wait_until(lambda: not self.shortcut.exists()))
        self.assertTrue(wait_until(lambda: self.version_installed() is None))
        self.assertEqual(self.files(), {'allurl.ini'})
        self.assertEqual([entry.name for entry in self.installed.iterdir()], ['allurl.ini'])
        self.assertEqual({file for file in self.data.rglob('*') if file.is_file()}, kept)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1], verbosity=2, failfast=True)
