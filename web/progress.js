// The host's percent-done status (state `progress`) with its Stop button, and the busy indicator
// (state `busy`). Esc presses Stop while a status with a Stop button shows.

export function showProgress(studio, connection) {
    const panel = document.getElementById('progress');
    const text = document.getElementById('progress-text');
    const bar = document.getElementById('progress-bar');
    const stop = document.getElementById('stop-button');
    const busy = document.getElementById('busy');

    const pressStop = () => connection.send({ type: 'stop' });
    stop.addEventListener('click', pressStop);
    document.addEventListener('keydown', (event) => {
        const progress = studio.state.progress;
        if (event.key !== 'Escape' || !progress || progress.stop === false || event.defaultPrevented) return;
        event.preventDefault();
        pressStop();
    });

    connection.onState((changed) => {
        if (changed.has('progress')) {
            const progress = studio.state.progress;
            panel.hidden = !progress;
            if (progress) {
                text.textContent = progress.text || '';
                bar.hidden = progress.bar === false;
                bar.value = Math.max(0, Math.min(100, Number(progress.percent) || 0));
                bar.textContent = `${bar.value}%`;
                stop.hidden = progress.stop === false;
            }
        }
        if (changed.has('busy')) {
            const isBusy = !!studio.state.busy;
            document.body.classList.toggle('busy', isBusy);
            busy.hidden = !isBusy;
            document.body.setAttribute('aria-busy', isBusy ? 'true' : 'false');
        }
    });
}
