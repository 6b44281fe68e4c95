# SPDX-License-Identifier: MIT
"""Claude Code and Codex: installed from npm into a cache folder, and run in a scratch home folder with no more
of the caller's environment than the desktop's addresses. Whatever they would send to another machine goes to a
dead port of this one."""
import json
import os
import pathlib
import shutil
import subprocess
import tempfile

from waiting import TookTooLong, until

PACKAGES = {"@anthropic-ai/claude-code": "2.1.197", "@openai/codex": "0.169.0"}
KEY = "dummy-key-for-loopback"


class Unavailable(Exception):
    """npm could not install the agents."""


class Agents:
    def __init__(self, cache, server):
        """Installs what the folder `cache` does not hold yet (some 640 MB); raises Unavailable."""
        self._server = server
        cache = pathlib.Path(cache).absolute()
        modules = cache / "node_modules"
        installed = cache / "installed"
        wanted = [f"{name}@{version}" for name, version in PACKAGES.items()]
        if not installed.exists() or installed.read_text().split() != wanted:
            self._install(cache, wanted)
            installed.write_text(" ".join(wanted))
        self.claude_program = modules / "@anthropic-ai/claude-code/bin/claude.exe"
        self._codex_script = modules / "@openai/codex/bin/codex.js"
        if subprocess.run([self.claude_program, "--version"], capture_output=True, check=False).returncode:
            # npm may be set up to run no installation scripts; this one puts the native program in place.
            subprocess.run(["node", "install.cjs"], cwd=modules / "@anthropic-ai/claude-code",
                           capture_output=True, check=True)

    @staticmethod
    def _install(cache, packages):
        print("Installing", *packages, flush=True)
        cache.mkdir(parents=True, exist_ok=True)
        # The caller's npm settings (a mirror, a proxy) are in the caller's home.
        environment = {**os.environ, "HOME": os.environ.get("CHIMEWELL_CALLER_HOME", os.environ["HOME"])}
        done = subprocess.run(["npm", "install", "--prefix", cache, "--no-audit", "--no-fund", *packages],
                              env=environment, capture_output=True, text=True, check=False)
        if done.returncode:
            raise Unavailable(done.stderr.strip()[-500:])

    def _environment(self):
        node = pathlib.Path(shutil.which("node")).parent
        kept = ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "HOME")
        dead = {name: "http://127.0.0.1:9" for proxy in ("http_proxy", "https_proxy", "all_proxy")
                for name in (proxy, proxy.upper())}
        return {**{name: os.environ[name] for name in kept}, **dead,
                "NO_PROXY": "127.0.0.1", "no_proxy": "127.0.0.1",
                "PATH": f"{node}:/usr/local/bin:/usr/bin:/bin",
                "TERM": "xterm-256color", "LANG": "C.UTF-8", "SHELL": "/bin/sh", "USER": "developer"}

    def claude_environment(self):
        return {**self._environment(), "ANTHROPIC_BASE_URL": self._server, "ANTHROPIC_API_KEY": KEY,
                "CLAUDE_CODE_DISABLE_NONESSENTIAL_TRAFFIC": "1", "DISABLE_AUTOUPDATER": "1",
                "DISABLE_TELEMETRY": "1", "DISABLE_ERROR_REPORTING": "1"}

    def claude_in_terminal(self, folder, **environment):
        """A session with a user, who has answered the questions that Claude Code asks a new one."""
        pathlib.Path(os.environ["HOME"], ".claude.json").write_text(json.dumps({
            "hasCompletedOnboarding": True, "theme": "dark", "customApiKeyResponses": {"approved": [KEY[-20:]]},
            "projects": {str(folder): {"hasTrustDialogAccepted": True, "hasCompletedProjectOnboarding": True}}}))
        terminal = Terminal([self.claude_program], folder, {**self.claude_environment(), **environment})
        terminal.until_shows("? for shortcuts")
        return terminal

    def claude_turn(self, folder, prompt):
        """One turn without a user; what the agent reports, its own account of the hooks included."""
        return self._lines([self.claude_program, "-p", prompt, "--allowedTools", "Bash", "--output-format",
                            "stream-json", "--verbose", "--include-hook-events"],
                           folder, self.claude_environment())

    def codex_turn(self, folder, prompt):
        # The service is named on the command line, so that the configuration holds our entry and no more.
        provider = (f'{{name="stand-in",base_url="{self._server}/v1",env_key="STANDIN_KEY",'
                    'wire_api="responses",request_max_retries=0,stream_max_retries=0}')
        return self._lines(["node", self._codex_script, "-c", "model_provider=standin",
                            "-c", f"model_providers.standin={provider}", "-c", "model=gpt-5",
                            "-c", "analytics.enabled=false", "-c", "check_for_update_on_startup=false",
                            "exec", "--json", "--skip-git-repo-check", "--sandbox", "danger-full-access",
                            prompt],
                           folder, {**self._environment(), "STANDIN_KEY": KEY})

    @staticmethod
    def _lines(command, folder, environment):
        done = subprocess.run(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=120, check=False)
        if done.returncode:
            said = done.stdout[-600:] + done.stderr[-600:]
            raise AssertionError(f"the agent left with {done.returncode}: {said}")
        return [json.loads(line) for line in done.stdout.splitlines() if line.startswith("{")]


class Terminal:
    """Runs a program as a user would, in a terminal without a window."""

    def __init__(self, command, folder, environment):
        # The path of a socket must be short.
        self._folder = tempfile.TemporaryDirectory(prefix="tm", dir="/tmp")
        values = [f"{name}={value}" for name, value in environment.items()]
        self._tmux("-f", os.devnull, "new-session", "-d", "-x", "110", "-y", "40", "-c", folder,
                   "env", "-i", *values, *command)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._tmux("kill-server")
        self._folder.cleanup()

    def _tmux(self, *arguments):
        return subprocess.run(["tmux", "-S", f"{self._folder.name}/s", *arguments], capture_output=True, text=True,
                              check=True).stdout

    def until_shows(self, text):
        try:
            until(lambda: text in self._tmux("capture-pane", "-p"), f"{text!r} on the screen", 30)
        except TookTooLong as fault:
            raise TookTooLong(f"{fault}; there is:\n{self._tmux('capture-pane', '-p')}") from None

    def say(self, text):
        self._tmux("send-keys", "-l", text)
        self._tmux("send-keys", "Enter")
