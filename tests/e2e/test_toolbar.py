"""The button on the browser's toolbar: asked for in the settings, pressed in a browser that vantroy-browser has started."""
import os
import pathlib
import subprocess
import unittest

import demo
from demo import stage

SETTINGS = 'Configuration...'
NAME = 'Vantroy'


class Toolbar(demo.HomeTest):
    def setUp(self):
        super().setUp()
        self.screen = self.enterContext(stage.Screen())
        starter = self.base / 'chromium'
        starter.write_text('#!/bin/sh\nexec chromium --disable-gpu --disable-background-networking '
                           f'{"--no-sandbox " if os.geteuid() == 0 else ""}"$@"\n')
        starter.chmod(0o755)
        self.data = self.base / 'data'
        self.folder = self.data / 'vantroy/browser'
        self.environment = self.screen.environment | {
            'VANTROY_HOME': str(self.home), 'XDG_DATA_HOME': str(self.data), 'XDG_CONFIG_HOME': str(self.base),
            'VANTROY_BROWSER_PROGRAM': str(starter)}

    def browser(self):
        (self.folder / 'DevToolsActivePort').unlink(missing_ok=True)
        return stage.process([stage.ROOT / 'scripts/vantroy-browser', 'about:blank'], env=self.environment,
                             stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def tools(self):
        stage.wait_for(lambda: stage.active_port(self.folder), 'the browser to start')
        port, path = (self.folder / 'DevToolsActivePort').read_text().split('\n')
        return stage.DevTools(f'ws://127.0.0.1:{port}{path}')

    def buttons(self):
        with self.tools() as tools:
            return [(button['name'], button['id']) for button in tools.call('Extensions.getExtensions')['extensions']]

    def change(self, key):
        """Presses a button of the sheet's second page."""
        with stage.process([stage.PROGRAM], env=self.environment) as program:
            main = self.screen.window(stage.MAIN_WINDOW)
            self.screen.press(stage.MAIN_WINDOW, 'alt+s')
            self.screen.wait_until_active(SETTINGS)
            self.screen.xdotool('key', 'Down', key)
            self.screen.wait_until_active(stage.MAIN_WINDOW, besides=main)
            self.screen.xdotool('key', 'Return')
            self.screen.wait_until_active(SETTINGS)
            self.screen.leave(SETTINGS, 'Escape')
            self.assertEqual(0, stage.leave_program(self.screen, program))

    def listens(self, number):
        """Whether the script of the extension has come to its end."""
        scripts = [target['webSocketDebuggerUrl'] for target in stage.targets(stage.active_port(self.folder))
                   if target['type'] == 'service_worker' and number in target['url']]
        return scripts and stage.evaluate(scripts[0], 'chrome.action.onClicked.hasListeners()')

    def assert_press_starts_the_program(self):
        (_, number), = self.buttons()
        with self.tools() as tools:
            stage.wait_for(lambda: self.listens(number), 'the button to be ready')
            tab = tools.call('Target.getTargets', filter=[{'type': 'tab'}])['targetInfos'][0]['targetId']
            tools.call('Extensions.triggerAction', id=number, targetId=tab)
            window = self.screen.window(stage.MAIN_WINDOW)
        program = int(self.screen.xdotool('getwindowpid', window))
        self.assertEqual(stage.PROGRAM.resolve(), pathlib.Path(f'/proc/{program}/exe').resolve())
        self.screen.leave(stage.MAIN_WINDOW, 'alt+e')

    def test_it_comes_with_add_and_goes_with_remove(self):
        with self.browser():
            self.assertEqual([], self.buttons())
            self.change('alt+a')
            self.assertEqual([NAME], [name for name, _ in self.buttons()])
            self.assert_press_starts_the_program()
        with self.browser():  # another start finds it there, and pinned
            self.assertEqual([NAME], [name for name, _ in self.buttons()])
            self.assertIn(self.buttons()[0][1], (self.folder / 'Default/Preferences').read_text())
            self.assert_press_starts_the_program()
            self.change('alt+r')
            self.assertEqual([], self.buttons())
        self.assertEqual([], list((self.folder / 'NativeMessagingHosts').iterdir()))
        self.assertFalse((self.data / 'vantroy/button').exists())
        with self.browser():
            self.assertEqual([], self.buttons())


if __name__ == '__main__':
    unittest.main()
