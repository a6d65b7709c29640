"""A browser that is in a bad way, beside a good one: a run brings what the good one has, and ends."""
import os
import random
import signal
import subprocess
import unittest

import demo
from demo import stage

KILLS = int(os.environ.get('VANTROY_ROUNDS', 8))

DISCARD = '''(() => {
    const tabs = document.querySelector("discards-main")?.shadowRoot.querySelector("discards-tab");
    const row = [...tabs?.shadowRoot.querySelectorAll("tbody tr") ?? []].find(row => row.innerText.includes("/asleep"));
    if (row?.innerText.includes("discarded"))
        return true;
    [...row?.querySelectorAll("div") ?? []].find(link => link.innerText == "[Urgent Discard]")?.click();
})()'''


class BadBrowser(demo.BatchTest):
    def setUp(self):
        super().setUp()
        # Where they are looked for, so that neither has to answer.
        self.bad_folder = self.base / 'chromium'
        self.bad_folder.mkdir()
        (self.bad_folder / 'Local State').write_text('{"internal_only_uis_enabled":true}')
        (self.base / 'google-chrome').symlink_to(self.browser.folder)
        del self.environment['VANTROY_BROWSER']
        self.environment |= {'XDG_CONFIG_HOME': str(self.base), 'XDG_DATA_HOME': str(self.base), 'HOME': str(self.base)}

    def bad_browser(self, *pages):
        (self.bad_folder / 'DevToolsActivePort').unlink(missing_ok=True)
        return stage.Browser(pages, folder=str(self.bad_folder))

    def assert_run_brings_the_rest(self):
        self.run_program('--all')
        self.assert_same_files(demo.SAVED, self.saved())

    def test_tabs_that_sleep_and_hang(self):
        with self.bad_browser('data:text/html,asleep: /asleep', 'data:text/html,hanging') as browser:
            browser.open('chrome://discards')
            page = stage.wait_for(lambda: next((target for target in stage.targets(browser.port)
                                                if target['url'] == 'chrome://discards/'), None), 'the list of tabs')
            stage.wait_for(lambda: stage.evaluate(page['webSocketDebuggerUrl'], DISCARD), 'a tab to fall asleep')
            hanging = next(target for target in stage.targets(browser.port) if target['url'].endswith('hanging'))
            with stage.DevTools(hanging['webSocketDebuggerUrl']) as tools:
                tools.send('Runtime.evaluate', expression='setTimeout(() => { for (;;); })')
                self.assertIn('pages: 3', self.run_program('--browsers').stdout)
                self.assert_run_brings_the_rest()

    def test_a_browser_that_has_stopped(self):
        with self.bad_browser('about:blank') as browser:
            os.killpg(browser.process.pid, signal.SIGSTOP)
            try:
                self.assert_run_brings_the_rest()
            finally:
                os.killpg(browser.process.pid, signal.SIGCONT)

    def test_a_browser_that_is_killed(self):
        page = self.base / 'many.html'
        page.write_text('<img src="data:image/gif;base64,R0lGODlhAQABAAAAACw=">' * 20_000)
        moments = random.Random(1)
        for _ in range(KILLS):
            with self.bad_browser(page.as_uri()) as browser, \
                    stage.process([stage.PROGRAM, '--all'], env=self.environment, stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL) as program:
                stage.time.sleep(moments.uniform(0, 0.6))
                os.killpg(browser.process.pid, signal.SIGKILL)
                self.assertEqual(0, program.wait(60))
            self.assert_same_files(demo.SAVED, self.saved())
            for file in self.folder.iterdir():
                file.unlink()


if __name__ == '__main__':
    unittest.main()
