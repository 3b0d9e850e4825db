#!/usr/bin/python3
"""Lives of a modem service, and what the program knows of the subscriber meanwhile: lives.py PROGRAMS [LIFE]

Each life has a system bus of its own. Its steps are what the services do, and what is known then, sooner or later:
imsi|msisdn|home_network|current_network|roaming|friendly.
"""
import os
import signal
import subprocess
import sys
import tempfile
import time

import dbus
import dbusmock

PROGRAMS = os.path.abspath(sys.argv[1])
MM, ROOT = 'org.freedesktop.ModemManager1', '/org/freedesktop/ModemManager1'
NET, SIM = MM + '.Modem.Modem3gpp', MM + '.Sim'
OBJECTS = 'org.freedesktop.DBus.ObjectManager'
NOTHING = '|||||'
HOME = '001010000000001|+12025550123|Northline|Northline|0|false'
ABROAD = '001010000000001|+12025550123|Northline|Elsewhere|1|false'
NUMBERLESS = HOME.replace('+12025550123', '')
NAMELESS = '001010000000001|+12025550123||00102|1|false'
DENIED = '001010000000001|+12025550123|Northline|||'
ASHORE = '310150000000000|123456789|fake.tel|fake.tel|0|false'


class Life:
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory()
        address = f'unix:path={self.folder.name}/bus'
        os.environ.update(DBUS_SYSTEM_BUS_ADDRESS=address, DBUS_SESSION_BUS_ADDRESS='unix:path=/nonexistent',
                          VISTANE_DB=self.folder.name + '/core.db', QT_QPA_PLATFORM='offscreen')
        self.bus, self.jobs, self.facts = None, {}, None

    def start(self, name, *command, **options):
        self.jobs[name] = subprocess.Popen(command, stdout=subprocess.PIPE, text=True, **options)
        return self.jobs[name]

    def die(self, name):
        self.jobs[name].kill()
        self.jobs.pop(name).communicate()

    def start_bus(self):
        address = os.environ['DBUS_SYSTEM_BUS_ADDRESS']
        self.start('bus', 'dbus-daemon', '--session', '--nofork', '--print-address', '--address=' + address,
                   stderr=subprocess.DEVNULL).stdout.readline()
        self.bus = dbus.bus.BusConnection(address)

    def end(self):
        for name in list(self.jobs):
            self.die(name)
        self.folder.cleanup()

    def serve(self, name, *options):
        self.start(name, sys.executable, '-m', 'dbusmock', '--system', '--logfile', '/dev/null', *options)
        wait(lambda: self.bus.name_has_owner(name))

    def mock(self, name, path):
        return dbus.Interface(self.bus.get_object(name, path), dbusmock.MOCK_IFACE)

    def mm(self, sims=1):
        self.serve(MM, '-m', MM, ROOT, MM)
        for number in range(sims):
            self.modem(number)

    def modem(self, number, sim=None):
        path = f'{ROOT}/Modem/{number}'
        if sim is None:
            sim = f'{ROOT}/SIM/{number}'
            properties = {'Imsi': f'00101000000000{number + 1}', 'OperatorName': 'Northline'}
            self.mock(MM, ROOT).AddObject(sim, SIM, properties, dbus.Array([], signature='(ssss)'))
        properties = {'Sim': dbus.ObjectPath(sim), 'OwnNumbers': ['+12025550123']}
        self.mock(MM, ROOT).AddObject(path, MM + '.Modem', properties, dbus.Array([], signature='(ssss)'))
        self.mock(MM, path).AddProperties(
            NET, {'RegistrationState': dbus.UInt32(1), 'OperatorName': 'Northline', 'OperatorCode': '00101'})
        added = [path, {NET: {'OperatorName': 'Northline'}}]
        self.mock(MM, ROOT).EmitSignal(OBJECTS, 'InterfacesAdded', 'oa{sa{sv}}', added)

    def remove(self, path):
        self.mock(MM, ROOT).RemoveObject(path)
        self.mock(MM, ROOT).EmitSignal(OBJECTS, 'InterfacesRemoved', 'oas', [path, [MM + '.Modem']])

    def change(self, interface, number=0, **properties):
        kind = 'SIM' if interface == SIM else 'Modem'
        self.mock(MM, f'{ROOT}/{kind}/{number}').UpdateProperties(interface, properties)

    def net(self, state, name='', code=''):
        self.change(NET, RegistrationState=dbus.UInt32(state), OperatorName=name, OperatorCode=code)

    def answer(self, path, interface, method, signature, code):
        self.mock(MM, path).AddMethod(interface, method, '', signature, code)

    def flood(self):
        self.answer(ROOT, MM, 'Flood', '', f'''for i in range(20000):
    objects['{ROOT}/SIM/0'].UpdateProperties('{SIM}', {{'Imsi': str(10000000 + i)}})''')
        dbus.Interface(self.bus.get_object(MM, ROOT), MM).Flood(timeout=120)
        self.change(SIM, Imsi='001010000000001')

    def ofono(self):
        self.serve('org.ofono', '--template', 'ofono')
        self.mock('org.ofono', '/ril_0').AddProperty('org.ofono.SimManager', 'ServiceProviderName', '')

    def set(self, interface, name, value):
        dbus.Interface(self.bus.get_object('org.ofono', '/ril_0'), 'org.ofono.' + interface).SetProperty(name, value)

    def hang(self, number=signal.SIGSTOP):
        self.jobs[MM].send_signal(number)

    def tool(self, *arguments):
        return subprocess.check_output([PROGRAMS + '/vistanectl', *arguments], timeout=60, text=True)

    def says(self, command, *lines):
        said = self.tool(*command.split()).splitlines()
        assert not set(lines) - set(said), said

    def menu_starts(self, sign):
        """A program that can't tell a number says so once it knows who the subscriber is."""
        if 'menu' not in self.jobs:
            self.start('menu', PROGRAMS + '/vistane-menu')
        wait(lambda: sign in self.jobs['menu'].stdout.readline())

    def reader(self, name, *arguments):
        if name not in self.jobs:
            log = f'{self.folder.name}/{name}'
            self.start(name, PROGRAMS + '/modem_facts', *arguments, stdin=subprocess.PIPE,
                       env=dict(os.environ, VISTANE_LOG=log))
        return self.jobs[name]

    def told(self, wanted):
        """Without being asked, as an open page is."""
        wait(lambda: self.reader('follower', 'follow').stdout.readline().strip() == wanted)

    def known(self):
        facts = self.reader('facts')
        facts.stdin.write('\n')
        facts.stdin.flush()
        return facts.stdout.readline().strip()

    def log(self):
        path = self.folder.name + '/facts'
        return open(path).read().splitlines() if os.path.exists(path) else []


def wait(condition):
    end = time.monotonic() + 60
    while not condition():
        assert time.monotonic() < end, 'in vain'
        time.sleep(0.02)


LIVES = {
    'neither': [(lambda l: None, NOTHING)],
    'a bus that comes late, goes and comes back': [
        (lambda l: l.die('bus'), NOTHING), (lambda l: l.start_bus() or l.mm(), HOME),
        (lambda l: l.die(MM) or l.die('bus'), NOTHING), (lambda l: l.start_bus() or l.mm(), HOME)],
    'a bus that keeps silent': [
        (lambda l: l.jobs['bus'].send_signal(signal.SIGSTOP), NOTHING)],
    'the program waits for who the subscriber is': [
        (lambda l: l.menu_starts('cannot get IMSI'), NOTHING),
        (lambda l: l.mm() or l.change(MM + '.Modem', OwnNumbers=['']) or l.menu_starts('cannot get MSISDN'),
         NUMBERLESS)],
    'at home, abroad, refused, searching': [
        (lambda l: l.mm(), HOME),
        (lambda l: l.net(5, 'Elsewhere', '00102'), ABROAD),
        (lambda l: l.says('menu Details', 'Home network\tNorthline\t\trow', 'Current network\tElsewhere\t\trow',
                          'Roaming\tRoaming\t\trow'), ABROAD),
        (lambda l: l.net(3), DENIED),
        (lambda l: l.net(2, 'Elsewhere', '00102'), DENIED),
        (lambda l: l.change(SIM, OperatorName='') or l.net(10, '', '00102'), NAMELESS),
        (lambda l: l.net(9, 'Northline', '00101'), HOME)],
    'whoever asks nothing is told': [
        (lambda l: l.mm() or l.told(HOME), HOME),
        (lambda l: l.net(5, 'Elsewhere', '00102') or l.told(ABROAD), ABROAD),
        (lambda l: l.die(MM) or l.told(NOTHING), NOTHING),
        (lambda l: l.mm() or l.told(HOME), HOME)],
    'no number': [
        (lambda l: l.mm(), HOME),
        (lambda l: l.change(MM + '.Modem', OwnNumbers=dbus.Array([], signature='s')), NUMBERLESS)],
    'a card that comes late, is another and goes': [
        (lambda l: l.mm(0), NOTHING),
        (lambda l: l.modem(0, '/'), NOTHING),
        (lambda l: l.modem(1), HOME.replace('001|', '002|')),
        (lambda l: l.change(SIM, 1, Imsi='44'), HOME.replace('001010000000001', '44')),
        (lambda l: l.change(MM + '.Modem', 1, Sim='/'), NOTHING)],
    'the first card of two is locked': [
        (lambda l: l.mm(2) or l.change(SIM, Imsi=''), HOME.replace('001|', '002|')),
        (lambda l: l.change(SIM, Imsi='001010000000001'), HOME)],
    'a modem that goes': [
        (lambda l: l.mm(), HOME),
        (lambda l: l.remove(ROOT + '/Modem/0'), NOTHING)],
    'a service that comes late, dies and comes back': [
        (lambda l: l.known(), NOTHING), (lambda l: l.mm(), HOME),
        (lambda l: l.die(MM), NOTHING), (lambda l: l.mm(), HOME)],
    'both': [
        (lambda l: l.ofono(), ASHORE), (lambda l: l.mm(), HOME), (lambda l: l.die(MM), ASHORE)],
    'the other one': [
        (lambda l: l.ofono(), ASHORE),
        (lambda l: l.set('NetworkRegistration', 'Status', 'roaming'),
         ASHORE.replace('fake.tel|fake.tel|0', '|fake.tel|1')),
        (lambda l: l.set('NetworkRegistration', 'Status', 'denied'), '310150000000000|123456789||||'),
        (lambda l: l.set('SimManager', 'ServiceProviderName', 'Shore'), '310150000000000|123456789|Shore|||'),
        (lambda l: l.set('SimManager', 'SubscriberNumbers', dbus.Array([], signature='s')),
         '310150000000000||Shore|||'),
        (lambda l: l.set('SimManager', 'SubscriberIdentity', ''), NOTHING)],
    'texts of a megabyte, of other characters and no texts': [
        (lambda l: l.mm(), HOME),
        (lambda l: l.net(5, 'E' * 1000000, '00102'), ABROAD.replace('Elsewhere', '00102')),
        (lambda l: l.net(5, 'Else\n\x9bwhere', '00102'), ABROAD.replace('Elsewhere', 'Else   where')),
        (lambda l: l.change(NET, OperatorName=7), ABROAD.replace('Elsewhere', '00102')),
        (lambda l: l.change(NET, RegistrationState='home'), DENIED),
        (lambda l: l.change(SIM, OperatorName=['a', 'b'] * 10000), DENIED.replace('Northline', 'a')),
        (lambda l: l.change(SIM, Imsi='00101000000000x'), NOTHING),
        (lambda l: l.change(SIM, Imsi='0010100000000001'), NOTHING),
        (lambda l: l.change(SIM, Imsi='001010000000001'), DENIED.replace('Northline', 'a'))],
    'answers of another type': [
        (lambda l: l.mm() or l.ofono(), HOME),
        (lambda l: l.answer(ROOT, OBJECTS, 'GetManagedObjects', 's', 'ret = "none"') or l.net(5), HOME),
        (lambda l: l.die(MM), ASHORE)],
    'a thousand modems': [
        (lambda l: l.mm() or l.answer(
            ROOT, OBJECTS, 'GetManagedObjects', 'a{oa{sa{sv}}}',
            f'ret = {{"{ROOT}/Modem/%d" % i: {{"{MM}.Modem": {{"Sim": dbus.ObjectPath("{ROOT}/SIM/0")}}}}'
            ' for i in range(1000)}') or l.change(SIM, OperatorName='B'),
         '001010000000001||B|||')],
    'ten thousand changes a second': [
        (lambda l: l.mm(), HOME), (lambda l: l.flood(), HOME)],
    'a service that hangs': [
        (lambda l: l.mm() or l.hang(), NOTHING), (lambda l: l.hang(signal.SIGCONT), HOME)],
    'the hand is stronger': [
        (lambda l: l.mm() or l.tool('device', 'set', 'imsi', '7') or l.tool('device', 'set', 'msisdn', ''),
         '7||Northline|Northline|0|false'),
        (lambda l: l.says('device list', 'imsi\t7\thand', 'msisdn\t\thand', 'roaming\t0\tmodem', 'model\t\t'),
         '7||Northline|Northline|0|false'),
        (lambda l: l.tool('device', 'unset', 'imsi') or l.tool('device', 'unset', 'msisdn'), HOME)],
}
for name, steps in LIVES.items():
    if sys.argv[2:] and name not in sys.argv[2:]:
        continue
    life = Life()
    try:
        life.start_bus()
        for number, (act, wanted) in enumerate(steps):
            act(life)
            wait(lambda: life.known() == wanted)
        assert len(set(life.log())) == len(life.log()), life.log()
    except AssertionError as error:
        sys.exit(f'{name}, step {number}: {life.known()} instead of {wanted}: {error}')
    finally:
        life.end()
